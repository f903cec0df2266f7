#pragma once

#include "platform/machine/machine_file_system.h"
#include "platform/machine/memory_store.h"
#include "platform/trust.h"

namespace tavix::machine {

// A machine in a folder has one user, who isn't elevated; it keeps no owners and no access lists.
class MachineTrust : public platform::Trust {
 public:
  // Files and facts must outlive this.
  MachineTrust(MachineFileSystem& files, const MachineFacts& facts) : files_(files), facts_(facts) {}

  bool Elevated() override { return false; }
  bool OwnedByOthers(TextView) override { return false; }
  platform::Protection Protect(TextView) override { return platform::Protection::Failed; }
  // Among `WinDir` and the answers 36, 38 and 42 of the shell: Windows, programs, programs of 32 bits.
  bool LiesAmongPrograms(TextView folder) override;
  bool Rename(TextView path, TextView name) override { return files_.Rename(path, name); }

 private:
  // The path without links of a folder, or of the next one above it that is there; empty where none is.
  Text RealPath(TextView folder);

  MachineFileSystem& files_;
  const MachineFacts& facts_;
};

// A machine in memory is told what is so. Owners and access lists go with what has them when its name
// changes.
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
