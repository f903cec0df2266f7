#pragma once

#include "doubles/memory_store.h"
#include "platform/machine/services/machine_file_system.h"

namespace tavix::machine {

// The content and facts of a seeded file.
struct FileSeed {
  std::string content = {};
  std::optional<uint64_t> size = {};  // default: of the content; the rest reads as NULs and takes no memory
  platform::DateTime modified = 0;
  platform::DateTime accessed = 0;  // long ago
  uint32_t attributes = 0;
};

// The files of a machine in memory, with calls that fail on demand.
class MemoryFileSystem : public MachineFileSystem {
 public:
  MemoryFileSystem(MemoryStore& store, const MachineFacts& facts)
      : MachineFileSystem(store, facts), store_(store) {}

  // Seeding makes missing folders above and replaces an existing item. Paths are absolute.
  void AddFile(TextView path, const FileSeed& seed = {});
  void AddFolder(TextView path);
  // Adds a link to an absolute path, or to a path relative to the link's folder. The target needn't exist.
  void AddLink(TextView path, TextView target);

  // Makes the calls below fail, by their names and paths ("DeleteFile", u"C:\\a.txt"); a move by its source.
  // Calls on a found item count as DeleteFile, DeleteFolder and MoveFile. A failing existence test can't
  // tell. For failures in the middle of a call, use the faults of MemoryStore.
  Faults faults;

  std::optional<platform::FileFacts> Look(TextView path) override;
  platform::Existence FileExists(TextView path) override;
  platform::Existence FolderExists(TextView path) override;
  std::unique_ptr<platform::OpenFolder> Open(TextView folder) override;
  std::unique_ptr<platform::FoundItem> OpenFound(TextView start, TextView below) override;
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
