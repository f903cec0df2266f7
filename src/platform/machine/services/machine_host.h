#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/clock.h"
#include "platform/machine/formats/machine_facts.h"
#include "platform/machine/services/journal.h"
#include "platform/machine/services/machine_folder.h"

namespace tavix::machine {

// Connects the platform interfaces to a machine folder for as long as it lives: registry with
// HKEY_CLASSES_ROOT merged, files, shell, event logs, dialogs, desktop, instance, network, trust, clock,
// screen, the user's separators, the application folder. Only one may exist at a time. Its end restores the
// state at the start of the process.
class MachineHost {
 public:
  // Opens the folder. With `now`, the machine's clock always shows that time; otherwise it is the host's.
  // Null on failure, also when another copy works on the folder; `error` is then one line of UTF-8.
  static std::unique_ptr<MachineHost> Open(const std::filesystem::path& folder,
                                           std::optional<platform::DateTime> now, std::string& error);
  ~MachineHost();
  MachineHost(const MachineHost&) = delete;
  MachineHost& operator=(const MachineHost&) = delete;

  MachineFolder& Folder();
  const class Journal& Journal() const;
  // Writes registry and attributes back if they changed. Everything else (files, journal, restart.txt,
  // machine.ini) is written at once. False on failure; `error` is then one line of UTF-8.
  bool Save(std::string& error);

 private:
  struct Parts;
  explicit MachineHost(std::unique_ptr<Parts> parts);

  std::unique_ptr<Parts> parts_;
};

}  // namespace tavix::machine
