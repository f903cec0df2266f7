#pragma once

#include "platform/merged_registry.h"
#include "platform/windows/windows_clock.h"
#include "platform/windows/windows_registry.h"

namespace tavix::windows {

// Puts the running system behind the platform interfaces for as long as it lives: the registry with
// HKEY_CLASSES_ROOT merged, the clock, the user's separators, the primary screen. The event queue comes
// with the window. One at a time.
class WindowsHost {
 public:
  WindowsHost();
  ~WindowsHost();
  WindowsHost(const WindowsHost&) = delete;
  WindowsHost& operator=(const WindowsHost&) = delete;

 private:
  WindowsRegistry registry_;
  platform::MergedRegistry merged_{registry_};
  WindowsClock clock_;
};

}  // namespace tavix::windows
