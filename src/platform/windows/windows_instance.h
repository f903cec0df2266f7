#pragma once

#include "platform/instance.h"
#include "platform/windows/handle.h"

namespace tavix::windows {

// Copies of the program in one session of a user. The answer is that of the first question.
class WindowsInstance : public platform::Instance {
 public:
  bool PreviousRuns() override;

 private:
  struct MutexTraits {
    using Handle = HANDLE;
    static Handle Null() { return nullptr; }
    static void Close(Handle handle) { CloseHandle(handle); }
  };
  // There as long as a copy has it.
  Owned<MutexTraits> mark_;
  bool previousRuns_ = false;
};

}  // namespace tavix::windows
