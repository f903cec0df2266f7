#pragma once

#include <optional>
#include <set>
#include <vector>

#include "clean/clean_oracle.h"
#include "clean/lost_trial.h"
#include "platform/machine/services/journal.h"

namespace tavix::lost {

// The name that a folder gets when a link takes its place during a clean.
constexpr TextView kMovedAside = u"moved aside";

// Compares a machine after a clean with what the clean may do. Failures are reported to the running test.
struct CleanJudge {
  explicit CleanJudge(Trouble kind) : trouble(kind) {}

  const Trouble trouble;
  CleanSettings settings;
  DiskPicture before;           // with what others add during the clean
  Keys mayGo;                   // items that ticked rows may remove
  std::optional<Text> swapped;  // the folder that became a link during the clean
  bool namedFaults = false;     // whether calls fail again and again

  // Adds to `mayGo` what the ticked rows stand for on the oracle's disk: as it is now, because calls may
  // fail, and at the turn of each row.
  void AddWhatMayGo(const std::vector<Row>& rows, CleanOracle oracle);
  // Whatever failed: each content is in its old place, in the bin or in the backup folder, and items that no
  // ticked row may remove are unchanged.
  void CheckNothingIsLost(const std::vector<Row>& rows, const CleanOracle& oracle,
                          const DiskPicture& after) const;
  // Checks that each remaining row was unticked or that its item still exists, and that the label counts the
  // rest.
  void CheckRows(const std::vector<Row>& rows, const DiskPicture& after) const;
  // False if a dangling or circular link lies on the path to the item of a row, a backup folder or one of
  // `named`, the known folders of the system. Other tests cover that.
  bool CanTellWhatStays(const std::vector<Row>& rows, const std::vector<Text>& named) const;
  // Checks that disk, rows, label and calls are exactly what the oracle predicts.
  void CheckExactly(const std::vector<Row>& rows, const CleanOracle& oracle, const DiskPicture& after,
                    const machine::Journal& journal) const;

 private:
  // The key after the clean of an item that had `key` before it, if the clean doesn't remove it.
  Text KeyAfterSwap(const Text& key) const;
  void CheckRowsLeft(const std::vector<Row>& rows, const DiskPicture& after) const;
};

}  // namespace tavix::lost
