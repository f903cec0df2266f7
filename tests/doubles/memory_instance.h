#pragma once

#include "platform/instance.h"

namespace tavix::machine {

// A machine in memory has one program, unless it is told otherwise.
class MemoryInstance : public platform::Instance {
 public:
  bool PreviousRuns() override { return previousRuns; }
  bool previousRuns = false;
};

}  // namespace tavix::machine
