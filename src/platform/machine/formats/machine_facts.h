#pragma once

#include <optional>
#include <vector>

#include "platform/file_system.h"
#include "platform/machine/formats/file_store.h"
#include "platform/machine/formats/machine_ini.h"

namespace tavix::machine {

// What is so on a machine without being seen from its files: the answers of its shell, its drives, its
// event logs. Each is a key of machine.ini; a key that is missing makes the operation that needs it fail.
class MachineFacts {
 public:
  MachineFacts() = default;
  // Facts that change are written back into machine.ini of the store.
  MachineFacts(MachineIni ini, FileStore* store)
      : ini_(std::move(ini)), store_(store), drives_(ReadDrives(ini_)) {}

  std::optional<Text> Value(TextView section, TextView key) const { return ini_.Value(section, key); }
  // All of a section, in the order of the file.
  const std::vector<MachineIni::Entry>& Entries(TextView section) const { return ini_.Entries(section); }
  // Sets a fact, here and in machine.ini where there is one, which keeps all else it holds.
  void Set(TextView section, TextView key, TextView value);

  // The drives of the section [Drives], in the order of their letters.
  const std::vector<platform::Drive>& Drives() const { return drives_; }
  // One of them, by its capital; null for a letter that the section doesn't name.
  const platform::Drive* FindDrive(char16_t letter) const;

 private:
  static std::vector<platform::Drive> ReadDrives(const MachineIni& ini);

  MachineIni ini_;
  FileStore* store_ = nullptr;
  std::vector<platform::Drive> drives_;
};

}  // namespace tavix::machine
