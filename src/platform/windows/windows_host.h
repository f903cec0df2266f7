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

// Puts the running system behind the platform interfaces for as long as it lives: the registry with
// HKEY_CLASSES_ROOT merged, files, shell, event logs, dialogs, desktop, network, other copies of the program,
// owners and rights, the clock, the user's separators, the primary screen, the folder of the program. The
// event queue comes with the window. One at a time, on the thread that uses it.
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

// The folder in which the running program lies.
Text ProgramFolder();

}  // namespace tavix::windows
