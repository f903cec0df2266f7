#include "platform/bindings.h"

#include "platform/application.h"
#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/event_logs.h"
#include "platform/file_system.h"
#include "platform/instance.h"
#include "platform/network.h"
#include "platform/registry.h"
#include "platform/screen.h"
#include "platform/shell.h"
#include "platform/trust.h"
#include "text/number.h"

namespace tavix::platform {

void ClearPlatform() {
  registry = nullptr;
  fileSystem = nullptr;
  shell = nullptr;
  eventLogs = nullptr;
  dialogs = nullptr;
  desktop = nullptr;
  instance = nullptr;
  network = nullptr;
  trust = nullptr;
  clock = nullptr;
  screen = {};
  applicationFolder.clear();
  userLocale = {};
}

}  // namespace tavix::platform
