#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "platform/machine/formats/machine_ini.h"
#include "platform/machine/services/machine_registry.h"
#include "platform/screen.h"
#include "text/number.h"

namespace tavix::machine {

// A Windows machine kept in a folder of the host: machine.ini, drives/, registry/. Nothing outside the
// folder is read or changed.
class MachineFolder {
 public:
  // Opens the folder and reads its facts and its registry, after putting right what a crash during Save
  // left. Null on failure; `error` is then one line of UTF-8 that names the file, and the line where there
  // is one.
  static std::unique_ptr<MachineFolder> Open(const std::filesystem::path& folder, std::string& error);

  // Without links and relative parts.
  const std::filesystem::path& Root() const { return root_; }
  const MachineIni& Ini() const { return ini_; }
  const tavix::Locale& Locale() const { return locale_; }
  const platform::Screen& Screen() const { return screen_; }
  MachineRegistry& Registry() { return registry_; }

  // Writes the registry back if it changed, one file for each hive that holds anything; what else lies in
  // the folder of the registry stays. A crash at any moment leaves the old registry or the new one. False
  // on failure, `error` as for Open.
  bool Save(std::string& error);

 private:
  MachineFolder() = default;
  bool ReadFacts(std::string& error);
  bool ReadRegistry(std::string& error);
  // Whether something that exists lies in the machine folder once its links are followed.
  bool LiesInside(const std::filesystem::path& path) const;
  // Where the registry's files lie, links followed. Nothing for a link that leads out.
  std::optional<std::filesystem::path> RegistryFolder() const;

  std::filesystem::path root_;
  MachineIni ini_;
  tavix::Locale locale_;
  platform::Screen screen_;
  MachineRegistry registry_;
};

}  // namespace tavix::machine
