#include "platform/windows/windows_instance.h"

#include <sddl.h>

namespace tavix::windows {
namespace {

// "Global\" makes the mutex visible in all sessions.
constexpr const wchar_t* kMutexName = L"Global\\TavixPub.Running";

// Everybody may open the mutex: other users' copies look for it, and so do copies that aren't elevated.
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
  mutex_.Reset(CreateMutexExW(&attributes, kMutexName, 0, SYNCHRONIZE));
  // If the mutex can't be opened, another copy owns it.
  previousRuns_ = !mutex_ || GetLastError() == ERROR_ALREADY_EXISTS;
  return previousRuns_;
}

}  // namespace tavix::windows
