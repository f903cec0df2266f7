#pragma once

#include <memory>

namespace tavix::platform {
class MergedRegistry;
}

namespace tavix::machine {

class Journal;
class MachineDesktop;
class MachineDialogs;
class MachineEventLogs;
class MachineFacts;
class MachineNetwork;
class MachineRegistry;
class MemoryFiles;
class MemoryFileSystem;
class MemoryInstance;
class MemoryShell;
class MemoryStore;
class MemoryTrust;
class StandingClock;

// A machine in memory. Connects the platform interfaces to it for as long as it lives. It starts with an
// empty registry and no drives; seeding a file adds its drive. Only one may exist at a time. Its end restores
// the state at the start of the process.
//
// A test includes the headers of the parts it uses, so that a change to one rebuilds no others.
struct MemoryHost {
  MemoryHost();
  ~MemoryHost();
  MemoryHost(const MemoryHost&) = delete;
  MemoryHost& operator=(const MemoryHost&) = delete;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;

 public:
  StandingClock& clock;
  MachineRegistry& registry;
  platform::MergedRegistry& mergedRegistry;  // the program's view of `registry`
  MemoryStore& store;
  MachineFacts& facts;  // has the sections of machine.ini: facts.Set(u"Folders", u"32", u"C:\\Cache")
  MemoryFileSystem& fileSystem;
  MemoryFiles& files;  // fileSystem as tests use it
  Journal& journal;
  MemoryShell& shell;
  MachineEventLogs& eventLogs;
  MachineDialogs& dialogs;
  MachineDesktop& desktop;
  MemoryTrust& trust;
  MachineNetwork& network;
  MemoryInstance& instance;
};

}  // namespace tavix::machine
