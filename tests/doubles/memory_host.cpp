#include "doubles/memory_host.h"

#include "platform/application.h"
#include "platform/nothing.h"

namespace tavix::machine {

MemoryHost::MemoryHost() {
  platform::registry = &mergedRegistry;
  platform::fileSystem = &files;
  platform::shell = &shell;
  platform::eventLogs = &eventLogs;
  platform::dialogs = &dialogs;
  platform::desktop = &desktop;
  platform::instance = &instance;
  platform::trust = &trust;
  platform::network = &network;
  platform::clock = &clock;
  platform::applicationFolder = kApplicationFolder;
}

MemoryHost::~MemoryHost() { platform::ClearPlatform(); }

}  // namespace tavix::machine
