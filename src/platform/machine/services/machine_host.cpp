#include "platform/machine/services/machine_host.h"

#include <algorithm>

#include "platform/application.h"
#include "platform/machine/host/host_store.h"
#include "platform/machine/host/machine_clock.h"
#include "platform/machine/services/machine_desktop.h"
#include "platform/machine/services/machine_dialogs.h"
#include "platform/machine/services/machine_event_logs.h"
#include "platform/machine/services/machine_file_system.h"
#include "platform/machine/services/machine_instance.h"
#include "platform/machine/services/machine_network.h"
#include "platform/machine/services/machine_shell.h"
#include "platform/machine/services/machine_trust.h"
#include "platform/machine/services/recycle_bin.h"
#include "platform/merged_registry.h"
#include "platform/nothing.h"
#include "platform/read_ahead.h"

namespace tavix::machine {

struct MachineHost::Parts {
  Parts(std::unique_ptr<MachineFolder> machine, std::unique_ptr<FileStore> opened,
        std::unique_ptr<FolderInstance> running)
      : folder(std::move(machine)), store(std::move(opened)), instance(std::move(running)) {}

  std::unique_ptr<MachineFolder> folder;
  std::unique_ptr<FileStore> store;
  platform::MergedRegistry registry{folder->Registry()};
  MachineFacts facts{folder->Ini(), store.get()};
  platform::ReadAhead ahead{std::min(platform::ReadAhead::kMostFolders, store->MostSpareFolders())};
  MachineFileSystem files{*store, facts, &ahead};
  class Journal journal {
    store.get()
  };
  MachineShell shell{*store, files, facts, journal};
  MachineEventLogs eventLogs{facts, journal};
  MachineDialogs dialogs{journal};
  MachineDesktop desktop;
  MachineTrust trust{files, facts};
  MachineNetwork network{journal};
  std::unique_ptr<FolderInstance> instance;
  HostClock hostClock;
  StandingClock standingClock;
};

std::unique_ptr<MachineHost> MachineHost::Open(const std::filesystem::path& folder,
                                               std::optional<platform::DateTime> now, std::string& error) {
  // Check before reading anything: another copy may be writing the files that we would read, or later
  // overwrite ours.
  std::error_code failure;
  auto instance = std::make_unique<FolderInstance>(std::filesystem::canonical(folder, failure));
  if (!failure && instance->PreviousRuns()) {
    error = "another copy of the program runs over this machine";
    return nullptr;
  }
  auto opened = MachineFolder::Open(folder, error);
  if (opened == nullptr) return nullptr;
  auto store = OpenHostStore(opened->Root());
  if (store == nullptr) {
    error = "the machine folder can't be read";
    return nullptr;
  }
  // Remove what a killed run left in the folders that only the program itself writes.
  if (const auto root = store->Root()) {
    root->RemoveTemporaries();
    if (const auto bin = root->Open(kRecycleFolder)) bin->RemoveTemporaries();
  }
  auto parts = std::make_unique<Parts>(std::move(opened), std::move(store), std::move(instance));
  if (!parts->files.Readable()) {
    error = "attributes.ini: can't be read";
    return nullptr;
  }
  if (now) parts->standingClock.Set(*now);
  platform::clock = now ? static_cast<platform::Clock*>(&parts->standingClock) : &parts->hostClock;
  return std::unique_ptr<MachineHost>(new MachineHost(std::move(parts)));
}

MachineHost::MachineHost(std::unique_ptr<Parts> parts) : parts_(std::move(parts)) {
  platform::registry = &parts_->registry;
  platform::fileSystem = &parts_->files;
  platform::shell = &parts_->shell;
  platform::eventLogs = &parts_->eventLogs;
  platform::dialogs = &parts_->dialogs;
  platform::desktop = &parts_->desktop;
  platform::instance = parts_->instance.get();
  platform::network = &parts_->network;
  platform::trust = &parts_->trust;
  platform::screen = parts_->folder->Screen();
  platform::applicationFolder = kApplicationFolder;
  userLocale = parts_->folder->Locale();
}

MachineHost::~MachineHost() { platform::ClearPlatform(); }

MachineFolder& MachineHost::Folder() { return *parts_->folder; }

const class Journal& MachineHost::Journal() const { return parts_->journal; }

bool MachineHost::Save(std::string& error) {
  if (!parts_->folder->Save(error)) return false;
  if (parts_->files.Save()) return true;
  error = "attributes.ini: can't be written";
  return false;
}

}  // namespace tavix::machine
