#include "platform/windows/windows_instance.h"

#include <sddl.h>

namespace tavix::windows {
namespace {

// All sessions of the machine see a name that begins so.
constexpr const wchar_t* kMark = L"Global\\TavixPub.Running";

// Everybody may open the mark: other users' copies look for it, and so do those with lesser rights.
constexpr const wchar_t* kForEverybody = L"D:(A;;GA;;;WD)";

struct LocalMemoryTraits {
  using Handle = PSECURITY_DESCRIPTOR;
  static Handle Null() { return nullptr; }
  static void Close(Handle handle) { LocalFree(handle); }
};

}  // namespace

bool WindowsInstance::PreviousRuns() {
  if (asked_) return previousRuns_;
  asked_ = true;
  Owned<LocalMemoryTraits> rights;
  ConvertStringSecurityDescriptorToSecurityDescriptorW(kForEverybody, SDDL_REVISION_1, rights.Receive(),
                                                       nullptr);
  SECURITY_ATTRIBUTES attributes = {sizeof attributes, rights.Get(), FALSE};
  mark_.Reset(CreateMutexExW(&attributes, kMark, 0, SYNCHRONIZE));
  // A mark that can't be opened is somebody's all the same.
  previousRuns_ = !mark_ || GetLastError() == ERROR_ALREADY_EXISTS;
  return previousRuns_;
}

}  // namespace tavix::windows
