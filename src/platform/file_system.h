#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "text/text.h"

namespace tavix::platform {

// File attributes as the system numbers them.
constexpr uint32_t kReadOnly = 1;
constexpr uint32_t kHidden = 2;
constexpr uint32_t kSystem = 4;

// What a listing tells of a file or folder without another look at it.
struct DirectoryEntry {
  TextView name;                     // as the disk has it; valid during the visit
  uint64_t size = 0;                 // bytes; 0 for a folder
  DateTime modified = kUnknownTime;  // local time, as accessed
  DateTime accessed = kUnknownTime;
  uint32_t attributes = 0;
  bool folder = false;
  bool link = false;  // a reparse point: junction, symbolic link
  // Whether more than name, `folder` and `link` could be had. Otherwise size and attributes are 0, and the
  // times aren't known.
  bool known = true;
};

// The same of one path.
struct FileFacts {
  Text path;  // whole, names as the disk has them, no backslash at the end but a drive's
  Text name;  // empty for the root of a drive
  uint64_t size = 0;
  DateTime modified = kUnknownTime;
  DateTime accessed = kUnknownTime;
  uint32_t attributes = 0;
  bool folder = false;
  bool link = false;
  bool known = true;  // as DirectoryEntry has it
};

struct Drive {
  Text path;     // "C:"
  int type = 0;  // 0 unknown, 1 removable, 2 fixed, 3 network, 4 CD, 5 memory
  bool ready = false;
  Text volumeName;  // empty when not ready
};

using EntryVisitor = std::function<void(const DirectoryEntry& entry)>;
using NameFilter = std::function<bool(TextView name)>;

// A folder to be listed and gone into without looking up its path again. It stays the folder that it was
// when something on its path changes, or is not there any more.
class OpenFolder {
 public:
  virtual ~OpenFolder() = default;
  // Visits what lies directly in it, in the order of the upper-cased names. False, and nothing visited, when
  // it is missing or can't be read. The visitor changes nothing. With `wanted`, files whose names it doesn't
  // want are left out, which spares looking at them.
  virtual bool List(const EntryVisitor& visit, const NameFilter& wanted) = 0;
  // A subfolder by its name as listed. Null for a link, and where it is missing, which may show only when it
  // is listed.
  virtual std::unique_ptr<OpenFolder> Open(TextView name) = 0;
};

// The files of a machine. Paths are absolute and are read as Windows reads them: letter case aside, `/` for
// `\`, repeated separators once (but for the two of a network path), `.` and `..` resolved, blanks and dots
// at the end of a name dropped. A drive alone ("C:") is its root. Paths over 260 characters work. A relative
// or empty path fails.
//
// A link as the last name is the link itself for Look, listing and deleting, and is followed by List,
// reading and writing; links on the way are followed. Nothing here throws; what fails changes nothing,
// except that a folder's deletion may have got half-way.
class FileSystem {
 public:
  using EntryVisitor = platform::EntryVisitor;
  using NameFilter = platform::NameFilter;

  virtual ~FileSystem() = default;

  // Nothing when the path is missing or can't be looked at.
  virtual std::optional<FileFacts> Look(TextView path) = 0;
  // Whether a file (not a folder), or a folder, stands there; a link counts as what it points to.
  virtual bool FileExists(TextView path) = 0;
  virtual bool FolderExists(TextView path) = 0;
  // Null when the folder is missing, which may show only when it is listed.
  virtual std::unique_ptr<OpenFolder> Open(TextView folder) = 0;
  // Lists a folder by its path.
  bool List(TextView folder, const EntryVisitor& visit, const NameFilter& wanted = {}) {
    const auto opened = Open(folder);
    return opened != nullptr && opened->List(visit, wanted);
  }
  // A text that two paths have in common exactly when they lead to the same folder, links followed. Nothing
  // when no folder is there.
  virtual std::optional<Text> FolderIdentity(TextView path) = 0;

  // False when it exists already, or its parent is missing.
  virtual bool CreateFolder(TextView path) = 0;
  // An empty file. Where one stands it is emptied if `overwrite`, otherwise this fails.
  virtual bool CreateTextFile(TextView path, bool overwrite) = 0;
  // The whole content.
  virtual std::optional<std::string> ReadFile(TextView path) = 0;
  // Replaces the whole content, or makes the file, through a temporary file beside it and a rename, so that
  // a crash leaves the old or the new content. The attributes of a file that stood there stay.
  virtual bool WriteFile(TextView path, std::string_view content) = 0;
  // Puts the bytes behind what stands in the file, or makes the file.
  virtual bool AppendToFile(TextView path, std::string_view content) = 0;

  // Deletes a file or the link to one. A read-only one only with `force`; hidden and system ones always.
  virtual bool DeleteFile(TextView path, bool force) = 0;
  // Deletes a folder with all its content. Links in it, or the link that it is, go and what they point to
  // stays. Read-only content only with `force`. False when the folder is missing or something of it stays.
  // Works at any depth. A drive's root is never deleted.
  virtual bool DeleteFolder(TextView path, bool force) = 0;
  // Moves a file to a new path whose folder exists and where nothing stands. Onto another volume it is
  // copied, the copy's size checked and the source deleted; a failed copy leaves the source and no half file.
  virtual bool MoveFile(TextView source, TextView destination) = 0;
  // Read-only, hidden and system; the other attributes stay.
  virtual bool SetAttributes(TextView path, uint32_t attributes) = 0;

  // In the order of their letters.
  virtual std::vector<Drive> Drives() = 0;
};

inline FileSystem* fileSystem = nullptr;

}  // namespace tavix::platform
