#pragma once

#include "doubles/faults.h"
#include "platform/machine/services/machine_shell.h"

namespace tavix::machine {

// The shell of a machine in memory, with calls that can be made to fail.
class MemoryShell : public MachineShell {
 public:
  using MachineShell::MachineShell;

  // Operations have the names of the routines. The path is the call's argument as text.
  Faults faults;

 protected:
  bool Refuses(TextView operation, TextView argument) override { return faults.Hit(operation, argument); }
};

}  // namespace tavix::machine
