#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "platform/machine/formats/machine_ini.h"
#include "platform/machine/services/machine_registry.h"
#include "platform/screen.h"
#include "text/number.h"

namespace tavix::machine {

// A Windows machine in a folder of the host: machine.ini, drives/, registry/. Nothing outside the folder is
// read or changed.
class MachineFolder {
 public:
  // Opens the folder, recovers from a crash of Save, reads machine.ini and the registry. Null on failure;
  // `error` is then one line of UTF-8 with the file and, where possible, the line number.
  static std::unique_ptr<MachineFolder> Open(const std::filesystem::path& folder, std::string& error);

  // Absolute, links resolved.
  const std::filesystem::path& Root() const { return root_; }
  const MachineIni& Ini() const { return ini_; }
  const tavix::Locale& Locale() const { return locale_; }
  const platform::Screen& Screen() const { return screen_; }
  MachineRegistry& Registry() { return registry_; }

  // Writes the registry back if it changed, one file for each hive that isn't empty. Other files in that
  // folder stay. A crash at any point leaves the old registry or the new one. False on failure; `error` as
  // for Open.
  bool Save(std::string& error);

 private:
  MachineFolder() = default;
  bool ReadFacts(std::string& error);
  bool ReadRegistry(std::string& error);
  // Whether an existing item lies in the machine folder, links followed.
  bool LiesInside(const std::filesystem::path& path) const;
  // The folder of the registry's files, links resolved. Nothing for a link out of the machine folder.
  std::optional<std::filesystem::path> RegistryFolder() const;

  std::filesystem::path root_;
  MachineIni ini_;
  tavix::Locale locale_;
  platform::Screen screen_;
  MachineRegistry registry_;
};

}  // namespace tavix::machine
