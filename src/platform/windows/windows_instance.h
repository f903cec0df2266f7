#pragma once

#include "platform/instance.h"
#include "platform/windows/handle.h"

namespace tavix::windows {

// Copies of the program on one machine, in whatever session and of whatever user: they share the data folder
// and empty its scratch folders at their start. A copy whose mark this one may not open counts as well. The
// answer is that of the first question.
class WindowsInstance : public platform::Instance {
 public:
  bool PreviousRuns() override;

 private:
  // There as long as a copy has it.
  ObjectHandle mark_;
  bool asked_ = false;
  bool previousRuns_ = false;
};

}  // namespace tavix::windows
