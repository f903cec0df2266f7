#pragma once

#include "doubles/memory_store.h"
#include "platform/machine/services/machine_trust.h"

namespace tavix::machine {

// Tests set who owns what and who is elevated. Owners and access lists belong to the file or folder: a rename
// keeps them.
class MemoryTrust : public MachineTrust {
 public:
  MemoryTrust(MemoryStore& store, MachineFileSystem& files, const MachineFacts& facts)
      : MachineTrust(files, facts), store_(store) {}

  bool Elevated() override { return elevated; }
  bool OwnedByOthers(TextView path) override;
  platform::Protection Protect(TextView path) override;
  bool Rename(TextView path, TextView name) override;

  bool elevated = false;
  // Whether there are access lists; others can change what has none.
  bool keepsLists = false;
  bool refusesRename = false;
  // Gives what stands at a path to somebody else.
  void GiveToOthers(TextView path);
  // Whether Protect gave a list to what stands there.
  bool IsProtected(TextView path);

 private:
  // Null where nothing stands.
  MemoryStore::Node* NodeOf(TextView path);

  MemoryStore& store_;
};

}  // namespace tavix::machine
