#pragma once

#include "doubles/memory_files.h"
#include "doubles/memory_store.h"
#include "platform/machine/services/machine_file_system.h"

namespace tavix::machine {

// The files of a machine in memory, as the program sees them and as tests use them.
class MemoryFileSystem : public MachineFileSystem, public MemoryFiles {
 public:
  MemoryFileSystem(MemoryStore& store, const MachineFacts& facts)
      : MachineFileSystem(store, facts), store_(store) {}

  void AddFile(TextView path, const FileSeed& seed = {}) override;
  void AddFolder(TextView path) override;
  void AddLink(TextView path, TextView target) override;

  std::optional<platform::FileFacts> Look(TextView path) override;
  platform::Existence FileExists(TextView path) override;
  platform::Existence FolderExists(TextView path) override;
  std::unique_ptr<platform::OpenFolder> Open(TextView folder) override;
  std::unique_ptr<platform::FoundFolder> OpenFound(TextView start, TextView below) override;
  bool CreateFolder(TextView path) override;
  bool CreateTextFile(TextView path, bool overwrite) override;
  std::optional<std::string> ReadFile(TextView path) override;
  bool WriteFile(TextView path, std::string_view content) override;
  bool AppendToFile(TextView path, std::string_view content) override;
  bool DeleteFile(TextView path, bool force) override;
  bool DeleteFolder(TextView path, bool force) override;
  bool MoveFile(TextView source, TextView destination) override;
  bool SetAttributes(TextView path, uint32_t attributes) override;
  bool IsDriveReady(char16_t letter) override;

 private:
  MemoryStore& store_;
};

}  // namespace tavix::machine
