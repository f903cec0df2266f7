#pragma once

#include <functional>
#include <memory>

#include "clean/clean_oracle.h"
#include "clean/failing_store.h"
#include "clean/random_machine.h"
#include "doubles/faults.h"

namespace tavix::lost {

// What keeps a machine's files, seen past the program.
class Ground {
 public:
  virtual ~Ground() = default;
  // Makes an item, with the time of its change and last use; its folder is there.
  virtual void Put(const Text& key, const DiskItem& item, platform::DateTime time) = 0;
  // With all below it.
  virtual void Remove(const Text& key) = 0;
  // Gives an item another name in its folder.
  virtual void Rename(const Text& key, TextView name) = 0;
  virtual DiskPicture Picture() = 0;
  // The store for the program.
  virtual std::unique_ptr<machine::FileStore> Store() = 0;
  virtual bool OnHost() const = 0;
  // Calls that are to fail by their names, where the ground knows such.
  virtual machine::Faults* NamedFaults() { return nullptr; }
};

// How a clean is disturbed.
enum class Trouble {
  None,
  FailingCall,    // a call of the store, and calls on the names of some rows
  FilledFolders,  // folders get new files right before they are removed
  SwappedFolder,  // a folder becomes a link at any call of the store
  Kill,
};
// What one machine after the other meets.
constexpr Trouble kTroubles[] = {Trouble::None,          Trouble::FailingCall, Trouble::None,
                                 Trouble::FilledFolders, Trouble::None,        Trouble::SwappedFolder};

// What all trials of a test came to.
struct Tally {
  int machines = 0;
  int removed = 0;   // items that a clean took away
  int refused = 0;   // ticked rows that stayed
  int registry = 0;  // machines whose registry a clean changed
  int killed = 0;    // cleans that were killed in their midst
};

// Runs the clean in a process that may be killed at a call of the store, a random one, or at any moment;
// false where it came to its end. Set where the system can do so.
using KillableClean =
    std::function<bool(machine::FailingStore& store, Dice& dice, const std::function<void()>& clean)>;

// One machine from its start to the program's end: scans a page, or all in one click, with ticks of
// functions, scopes and rows at random, changes the disk before the clean, cleans, and holds what is left
// against the oracle. Failures are added to the test that runs. The whole of it follows from the seed.
void RunTrial(uint64_t seed, Ground& ground, Trouble trouble, const KillableClean& kill, Tally& tally);

// How many machines a test makes of those that TAVIX_MACHINES asks for, 300 without it, `share` per cent of
// them; its seeds from TAVIX_SEED on, which without the number asks for that one alone.
struct Seeds {
  uint64_t first = 1;
  int count = 0;
};
Seeds SeedsToTry(int share);

}  // namespace tavix::lost
