#pragma once

#include "platform/instance.h"

namespace tavix::machine {

// No other copy runs, unless a test says so.
class MemoryInstance : public platform::Instance {
 public:
  bool PreviousRuns() override { return previousRuns; }
  bool previousRuns = false;
};

}  // namespace tavix::machine
