#include "platform/machine/platform_bindings.h"

#include "platform/application.h"
#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/event_logs.h"
#include "platform/file_system.h"
#include "platform/instance.h"
#include "platform/registry.h"
#include "platform/screen.h"
#include "platform/shell.h"
#include "text/number.h"

namespace tavix::machine {

void ClearPlatform() {
  platform::registry = nullptr;
  platform::fileSystem = nullptr;
  platform::shell = nullptr;
  platform::eventLogs = nullptr;
  platform::dialogs = nullptr;
  platform::desktop = nullptr;
  platform::instance = nullptr;
  platform::clock = nullptr;
  platform::screen = {};
  platform::applicationFolder.clear();
  userLocale = {};
}

}  // namespace tavix::machine
