#pragma once

#include "platform/trust.h"

namespace tavix::machine {

class MachineFacts;
class MachineFileSystem;

// A machine in a folder has one user, who isn't elevated. It has no owners and no access lists.
class MachineTrust : public platform::Trust {
 public:
  // Files and facts must outlive this.
  MachineTrust(MachineFileSystem& files, const MachineFacts& facts) : files_(files), facts_(facts) {}

  bool Elevated() override { return false; }
  bool OwnedByOthers(TextView) override { return false; }
  platform::Protection Protect(TextView) override { return platform::Protection::Failed; }
  // The program folders are `WinDir` and the shell folders 36, 38 and 42: Windows, programs, 32-bit programs.
  bool LiesAmongPrograms(TextView folder) override;
  bool Rename(TextView path, TextView name) override;

 private:
  // The folder's path with all links resolved. For a missing folder, that of the nearest folder above it that
  // exists. Empty when there is none.
  Text RealPath(TextView folder);

  MachineFileSystem& files_;
  const MachineFacts& facts_;
};

}  // namespace tavix::machine
