#pragma once

#include "doubles/memory_store.h"
#include "platform/machine/services/machine_trust.h"

namespace tavix::machine {

// Owners, access lists and rights as tests set them. Owners and lists belong to the file or folder itself: a
// rename keeps them.
class MemoryTrust : public MachineTrust {
 public:
  MemoryTrust(MemoryStore& store, MachineFileSystem& files, const MachineFacts& facts)
      : MachineTrust(files, facts), store_(store), files_(files) {}

  bool Elevated() override { return elevated; }
  bool OwnedByOthers(TextView path) override;
  platform::Protection Protect(TextView path) override;
  bool Rename(TextView path, TextView name) override;

  bool elevated = false;
  // Whether files have access lists. Without one, other users can change a file.
  bool keepsLists = false;
  bool refusesRename = false;
  // Makes another user the owner of an existing item.
  void GiveToOthers(TextView path);
  // Whether Protect gave the item at a path a list.
  bool IsProtected(TextView path);

 private:
  // Null when it is missing.
  MemoryStore::Node* NodeOf(TextView path);

  MemoryStore& store_;
  MachineFileSystem& files_;
};

}  // namespace tavix::machine
