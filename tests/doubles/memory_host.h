#pragma once

#include "doubles/memory_file_system.h"
#include "doubles/memory_instance.h"
#include "doubles/memory_shell.h"
#include "doubles/memory_trust.h"
#include "platform/machine/formats/machine_facts.h"
#include "platform/machine/host/machine_clock.h"
#include "platform/machine/services/journal.h"
#include "platform/machine/services/machine_desktop.h"
#include "platform/machine/services/machine_dialogs.h"
#include "platform/machine/services/machine_event_logs.h"
#include "platform/machine/services/machine_network.h"
#include "platform/machine/services/machine_registry.h"
#include "platform/merged_registry.h"

namespace tavix::machine {

// A machine in memory. Connects the platform interfaces to it for as long as it lives. It starts with an
// empty registry and no drives; seeding a file adds its drive. Only one may exist at a time. Its end restores
// the state at the start of the process.
struct MemoryHost {
  MemoryHost();
  ~MemoryHost();
  MemoryHost(const MemoryHost&) = delete;
  MemoryHost& operator=(const MemoryHost&) = delete;

  StandingClock clock;
  MachineRegistry registry;
  platform::MergedRegistry mergedRegistry{registry};
  MemoryStore store;
  MachineFacts facts;  // has the sections of machine.ini: facts.Set(u"Folders", u"32", u"C:\\Cache")
  MemoryFileSystem files{store, facts};
  Journal journal;
  MemoryShell shell{store, files, facts, journal};
  MachineEventLogs eventLogs{facts, journal};
  MachineDialogs dialogs{journal};
  MachineDesktop desktop;
  MemoryTrust trust{store, files, facts};
  MachineNetwork network{journal};
  MemoryInstance instance;
};

}  // namespace tavix::machine
