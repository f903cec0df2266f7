#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "doubles/faults.h"
#include "platform/clock.h"
#include "platform/existence.h"

namespace tavix::machine {

// The content and facts of a seeded file.
struct FileSeed {
  std::string content = {};
  std::optional<uint64_t> size = {};  // default: of the content; the rest reads as NULs and takes no memory
  platform::DateTime modified = 0;
  platform::DateTime accessed = 0;  // long ago
  uint32_t attributes = 0;
};

// The files of a machine in memory as tests use them: they seed, read and change files, and make calls fail.
// The program sees the same files through MemoryFileSystem. This header does without platform/file_system.h,
// which most tests don't need.
class MemoryFiles {
 public:
  MemoryFiles() = default;
  MemoryFiles(const MemoryFiles&) = delete;
  MemoryFiles& operator=(const MemoryFiles&) = delete;

  // Seeding makes missing folders above and replaces an existing item. Paths are absolute.
  virtual void AddFile(TextView path, const FileSeed& seed = {}) = 0;
  virtual void AddFolder(TextView path) = 0;
  // Adds a link to an absolute path, or to a path relative to the link's folder. The target needn't exist.
  virtual void AddLink(TextView path, TextView target) = 0;

  // As platform::FileSystem has them.
  virtual platform::Existence FileExists(TextView path) = 0;
  virtual platform::Existence FolderExists(TextView path) = 0;
  virtual std::optional<std::string> ReadFile(TextView path) = 0;
  virtual bool DeleteFile(TextView path, bool force) = 0;
  virtual bool DeleteFolder(TextView path, bool force) = 0;
  virtual bool SetAttributes(TextView path, uint32_t attributes) = 0;

  // Makes calls of the file system fail, by their names and paths ("DeleteFile", u"C:\\a.txt"); a move by its
  // source. Calls on a found item count as DeleteFile, DeleteFolder and MoveFile. A failing existence test
  // can't tell. For failures in the middle of a call, use the faults of MemoryStore.
  Faults faults;

 protected:
  ~MemoryFiles() = default;
};

}  // namespace tavix::machine
