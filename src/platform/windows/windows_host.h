#pragma once

#include "platform/merged_registry.h"
#include "platform/windows/com.h"
#include "platform/windows/windows_clock.h"
#include "platform/windows/windows_desktop.h"
#include "platform/windows/windows_dialogs.h"
#include "platform/windows/windows_event_logs.h"
#include "platform/windows/windows_file_system.h"
#include "platform/windows/windows_instance.h"
#include "platform/windows/windows_network.h"
#include "platform/windows/windows_registry.h"
#include "platform/windows/windows_shell.h"
#include "platform/windows/windows_trust.h"

namespace tavix::windows {

// Connects the platform interfaces to the running system for as long as it lives: registry (HKEY_CLASSES_ROOT
// merged), files, shell, event logs, dialogs, desktop, network, other running copies, owners and rights,
// clock. Also sets the user's separators, the primary screen and the program's folder. The event queue
// belongs to the window. Only one may exist at a time, on the thread that uses it.
class WindowsHost {
 public:
  WindowsHost();
  ~WindowsHost();
  WindowsHost(const WindowsHost&) = delete;
  WindowsHost& operator=(const WindowsHost&) = delete;

 private:
  ComApartment apartment_;
  WindowsRegistry registry_;
  platform::MergedRegistry merged_{registry_};
  WindowsClock clock_;
  WindowsFileSystem fileSystem_;
  WindowsShell shell_;
  WindowsEventLogs eventLogs_;
  WindowsDialogs dialogs_;
  WindowsDesktop desktop_;
  WindowsInstance instance_;
  WindowsNetwork network_;
  WindowsTrust trust_;
};

// The folder of the running program. Empty when it can't be told.
Text ProgramFolder();

}  // namespace tavix::windows
