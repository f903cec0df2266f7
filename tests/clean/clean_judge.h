#pragma once

#include <optional>
#include <set>
#include <vector>

#include "clean/clean_oracle.h"
#include "clean/lost_trial.h"
#include "platform/machine/journal.h"

namespace tavix::lost {

using Keys = std::set<Text, LessIgnoringCase>;

// The name that a folder gets when a link takes its place during a clean.
constexpr TextView kAside = u"stands aside";

// Holds what a clean has left against what it may do. Failures are added to the test that runs.
struct CleanJudge {
  explicit CleanJudge(Trouble kind) : trouble(kind) {}

  const Trouble trouble;
  Orders orders;
  DiskPicture before;           // with what others add during the clean
  Keys mayGo;                   // what ticked rows may take
  std::optional<Text> swapped;  // the folder that became a link during the clean
  bool namedFaults = false;     // whether calls fail again and again

  // Adds to `mayGo` what the ticked rows stand for on this disk.
  void AddWhatMayGo(const std::vector<Row>& rows, const CleanOracle& oracle, const DiskPicture& disk);
  // Holds whatever failed: each content stands where it stood, in the bin or in the backup folder; what no
  // ticked row may take stands unchanged.
  void CheckNothingIsLost(const std::vector<Row>& rows, const CleanOracle& oracle,
                          const DiskPicture& after) const;
  // A row that is left was unticked, or what it stands for is still there. The label counts the other rows.
  void CheckRows(const std::vector<Row>& rows, const DiskPicture& after) const;
  // False if a link stands in the way to a row's item, a backup folder or one of `named`, the folders that
  // the system names: what stays then has tests of its own.
  bool CanTellWhatStays(const std::vector<Row>& rows, const std::vector<Text>& named) const;
  // Disk, rows, label and calls are exactly those that the oracle foretells.
  void CheckExactly(const std::vector<Row>& rows, const CleanOracle& oracle, const DiskPicture& after,
                    const machine::Journal& journal) const;

 private:
  // Where an item of `before` stands after the clean if nobody takes it.
  Text Later(const Text& key) const;
  void CheckRowsLeft(const std::vector<Row>& rows, const DiskPicture& after) const;
};

}  // namespace tavix::lost
