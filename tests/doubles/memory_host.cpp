#include "doubles/memory_host.h"

#include "doubles/memory_file_system.h"
#include "doubles/memory_instance.h"
#include "doubles/memory_shell.h"
#include "doubles/memory_trust.h"
#include "platform/application.h"
#include "platform/machine/formats/machine_facts.h"
#include "platform/machine/host/machine_clock.h"
#include "platform/machine/services/journal.h"
#include "platform/machine/services/machine_desktop.h"
#include "platform/machine/services/machine_dialogs.h"
#include "platform/machine/services/machine_event_logs.h"
#include "platform/machine/services/machine_network.h"
#include "platform/machine/services/machine_registry.h"
#include "platform/merged_registry.h"
#include "platform/nothing.h"

namespace tavix::machine {

struct MemoryHost::Parts {
  StandingClock clock;
  MachineRegistry registry;
  platform::MergedRegistry mergedRegistry{registry};
  MemoryStore store;
  MachineFacts facts;
  MemoryFileSystem fileSystem{store, facts};
  Journal journal;
  MemoryShell shell{store, fileSystem, facts, journal};
  MachineEventLogs eventLogs{facts, journal};
  MachineDialogs dialogs{journal};
  MachineDesktop desktop;
  MemoryTrust trust{store, fileSystem, facts};
  MachineNetwork network{journal};
  MemoryInstance instance;
};

MemoryHost::MemoryHost()
    : parts_(std::make_unique<Parts>()),
      clock(parts_->clock),
      registry(parts_->registry),
      mergedRegistry(parts_->mergedRegistry),
      store(parts_->store),
      facts(parts_->facts),
      fileSystem(parts_->fileSystem),
      files(parts_->fileSystem),
      journal(parts_->journal),
      shell(parts_->shell),
      eventLogs(parts_->eventLogs),
      dialogs(parts_->dialogs),
      desktop(parts_->desktop),
      trust(parts_->trust),
      network(parts_->network),
      instance(parts_->instance) {
  platform::registry = &mergedRegistry;
  platform::fileSystem = &fileSystem;
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
