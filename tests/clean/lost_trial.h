#pragma once

#include <functional>
#include <memory>

#include "clean/clean_oracle.h"
#include "clean/failing_store.h"
#include "clean/random_machine.h"
#include "doubles/faults.h"

namespace tavix::lost {

// The files of a machine, as tests reach them without the program.
class TestDisk {
 public:
  virtual ~TestDisk() = default;
  // Makes an item in an existing folder. `time` is the time of its last change and last use.
  virtual void Put(const Text& key, const DiskItem& item, platform::DateTime time) = 0;
  // Removes an item with all below it.
  virtual void Remove(const Text& key) = 0;
  // Gives an item another name in its folder.
  virtual void Rename(const Text& key, TextView name) = 0;
  virtual DiskPicture Picture() = 0;
  // The store for the program.
  virtual std::unique_ptr<machine::FileStore> Store() = 0;
  virtual bool OnHost() const = 0;
  // Makes calls fail by their names; null if this disk can't.
  virtual machine::Faults* NamedFaults() { return nullptr; }
};

// How a clean is disturbed.
enum class Trouble {
  None,
  FailingCall,    // a call of the store fails, and calls on the names of some rows and on some registry keys
  FilledFolders,  // folders get new files right before they are removed
  SwappedFolder,  // a folder becomes a link at a random call of the store
  Kill,
};
// The troubles of one machine after another.
constexpr Trouble kTroubles[] = {Trouble::None,          Trouble::FailingCall, Trouble::None,
                                 Trouble::FilledFolders, Trouble::None,        Trouble::SwappedFolder};

// The totals of all trials of a test.
struct Tally {
  int machines = 0;
  int removed = 0;   // items that a clean removed
  int refused = 0;   // ticked rows that stayed
  int registry = 0;  // machines whose registry a clean changed
  int denied = 0;    // machines whose registry kept what a ticked row would have removed
  int exact = 0;     // machines that were compared with all that the oracle predicts
  int killed = 0;    // cleans that were killed before their end
};

// Runs the clean in a child process that is killed at a random call of the store or at a random moment. False
// if the clean finished first. Empty on systems that can't do this.
using KillableClean =
    std::function<bool(machine::FailingStore& store, Dice& dice, const std::function<void()>& clean)>;

// Runs the program over one random machine. Scans a page, or all in one click, with random ticks; changes the
// disk; cleans; compares the result with the oracle. Failures are reported to the running test. The seed
// decides everything.
void RunTrial(uint64_t seed, TestDisk& testDisk, Trouble trouble, const KillableClean& kill, Tally& tally);

// The machines that a test tries: `share` per cent of TAVIX_MACHINES (default 300, or 60 with sanitizers).
// The first seed is TAVIX_SEED; if only TAVIX_SEED is set, that seed alone.
struct Seeds {
  uint64_t first = 1;
  int count = 0;
};
Seeds SeedsToTry(int share);

}  // namespace tavix::lost
