#include "platform/windows/windows_instance.h"

namespace tavix::windows {

bool WindowsInstance::PreviousRuns() {
  if (!mark_) {
    mark_.Reset(CreateMutexW(nullptr, FALSE, L"Local\\TavixPub.Running"));
    const DWORD error = GetLastError();
    // One with higher rights keeps its mark to itself.
    previousRuns_ = mark_ ? error == ERROR_ALREADY_EXISTS : error == ERROR_ACCESS_DENIED;
  }
  return previousRuns_;
}

}  // namespace tavix::windows
