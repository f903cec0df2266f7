#pragma once

#include "platform/instance.h"
#include "platform/windows/handle.h"

namespace tavix::windows {

// Looks for other running copies on this machine, of any session and user: all copies share the data folder
// and empty its scratch folders when they start. A mutex marks a running copy. If it exists and can't be
// opened, another copy runs. The first answer is kept.
class WindowsInstance : public platform::Instance {
 public:
  bool PreviousRuns() override;

 private:
  // The system deletes the mutex when the last copy closes it.
  ObjectHandle mutex_;
  bool asked_ = false;
  bool previousRuns_ = false;
};

}  // namespace tavix::windows
