#pragma once

#include <optional>
#include <vector>

#include "platform/drive.h"
#include "platform/machine/formats/file_store.h"
#include "platform/machine/formats/machine_ini.h"

namespace tavix::machine {

// What machine.ini says about a machine: its shell's answers, its drives, its event logs. An operation that
// needs a missing key fails.
class MachineFacts {
 public:
  MachineFacts() = default;
  // Changed facts are written back to machine.ini of the store.
  MachineFacts(MachineIni ini, FileStore* store)
      : ini_(std::move(ini)), store_(store), drives_(ReadDrives(ini_)) {}

  std::optional<Text> Value(TextView section, TextView key) const { return ini_.Value(section, key); }
  // All entries of a section, in the order of the file.
  const std::vector<MachineIni::Entry>& Entries(TextView section) const { return ini_.Entries(section); }
  // Sets a fact here and, if it exists, in machine.ini. Everything else in the file stays.
  void Set(TextView section, TextView key, TextView value);

  // The drives of the section [Drives], in the order of their letters.
  const std::vector<platform::Drive>& Drives() const { return drives_; }
  // A drive by its upper-case letter. Null when the section doesn't name it.
  const platform::Drive* FindDrive(char16_t letter) const;

 private:
  static std::vector<platform::Drive> ReadDrives(const MachineIni& ini);

  MachineIni ini_;
  FileStore* store_ = nullptr;
  std::vector<platform::Drive> drives_;
};

}  // namespace tavix::machine
