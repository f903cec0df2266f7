#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "platform/existence.h"
#include "text/text.h"

namespace tavix::platform {

// File attributes as the system numbers them.
constexpr uint32_t kReadOnly = 1;
constexpr uint32_t kHidden = 2;
constexpr uint32_t kSystem = 4;
constexpr uint32_t kArchive = 32;

// What a listing tells of a file or folder without another look at it.
struct DirectoryEntry {
  TextView name;                     // as the disk has it; valid during the visit
  uint64_t size = 0;                 // bytes; 0 for a folder
  DateTime modified = kUnknownTime;  // local time, as accessed
  DateTime accessed = kUnknownTime;
  uint32_t attributes = 0;  // of those above
  bool folder = false;
  bool link = false;  // stands for something else: junction, symbolic link, alias of a store app
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

// Types of drives.
constexpr int kUnknownDrive = 0;
constexpr int kRemovableDrive = 1;
constexpr int kFixedDrive = 2;
constexpr int kNetworkDrive = 3;
constexpr int kCdDrive = 4;
constexpr int kMemoryDrive = 5;

struct Drive {
  Text path;  // "C:"
  int type = kUnknownDrive;
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

// A file or folder that a walk found, opened from the folder where the walk began. Every name between the two
// was opened by itself and none of them is a link; the item itself may be one. What is done here is done to
// what was opened: when a folder above it becomes a link afterwards, nothing happens elsewhere.
class FoundItem {
 public:
  virtual ~FoundItem() = default;
  // Of the item itself: a link is none, whatever it leads to.
  virtual bool IsFolder() const = 0;

  // Deletes a file or a link, a read-only one too. What a link leads to stays. False for a folder, and when
  // the item stays.
  virtual bool DeleteFile() = 0;
  // Deletes a folder with the folders and the files of zero bytes in it, read-only ones too; of a link to a
  // folder, the link alone. A file with content and a link in the folder stay, and so do the folders around
  // them. False when something stays.
  virtual bool DeleteEmptyFolder() = 0;
  // Moves a file or a link, as FileSystem::MoveFile does. False for a folder, and when it could not be moved.
  virtual bool MoveFileTo(TextView destination) = 0;
  // Lets go of the item, for the shell to take it by its path. The folders on the path stay held as they
  // were.
  virtual void LeaveToShell() = 0;
};

// The files of a machine. Paths are absolute and are read as Windows reads them: letter case aside, `/` for
// `\`, repeated separators once (but for the two of a network path), `.` and `..` resolved, blanks and dots
// at the end of a name dropped. A drive alone ("C:") is its root. Paths over 260 characters work. A relative
// or empty path fails.
//
// A link as the last name is the link itself for Look, listing and deleting, and is followed by List,
// reading and writing; links on the way are followed. The alias of a store app counts as a link to a file
// that is there; it can't be read. Nothing here throws; what fails changes nothing, except that a folder's
// deletion may have got half-way.
//
// A file may be kept online (a placeholder of a cloud drive, an archived file): its folder's listing has all
// about it but its content. No call here calls the content in, but AppendToFile and, where the system says
// so, moving within a volume to outside of the cloud drive's folder. ReadFile fails for such a file, and so
// does moving it onto another volume. Look, List and OpenFolder read listings and open no file;
// FileExists and FolderExists open what a link leads to, for its attributes alone; FolderIdentity and Lineage
// open folders, for their attributes alone. Drives without reparse points (FAT, exFAT) have no links.
class FileSystem {
 public:
  using EntryVisitor = platform::EntryVisitor;
  using NameFilter = platform::NameFilter;

  virtual ~FileSystem() = default;

  // Nothing when the path is missing or can't be looked at.
  virtual std::optional<FileFacts> Look(TextView path) = 0;
  // Whether a file (not a folder), or a folder, stands there; a link counts as what it points to.
  //
  // Missing is only what the system says is not found: no such name or folder, a name that nothing can have,
  // a text that is no whole path, a link to nothing, and all on a drive that isn't there or isn't ready.
  // It can't be told where the system refuses to look (a folder without the right to it, links in circles),
  // where the network doesn't answer, and where a device or the system fails (a bad disk, no handles left).
  virtual Existence FileExists(TextView path) = 0;
  virtual Existence FolderExists(TextView path) = 0;
  // Null when the folder is missing, which may show only when it is listed.
  virtual std::unique_ptr<OpenFolder> Open(TextView folder) = 0;
  // Lists a folder by its path.
  bool List(TextView folder, const EntryVisitor& visit, const NameFilter& wanted = {}) {
    const auto opened = Open(folder);
    return opened != nullptr && opened->List(visit, wanted);
  }
  // A text that two paths have in common exactly when they lead to the same folder, links followed. Nothing
  // when no folder is there, or it can't be told.
  virtual std::optional<Text> FolderIdentity(TextView path) = 0;
  // The identity of a folder, links followed, then those of all folders that it lies in, up to the root of
  // its drive. Empty when no folder is there, or it can't be told.
  virtual std::vector<Text> Lineage(TextView path) = 0;
  // What stands at `below`, one or more names, under the folder `start`. That folder is found as any path is;
  // from there on each name is opened by itself. Null when a name before the last is a link, when one is
  // missing, and when one can't be opened for deletion. While the item lives, the folders on its path can't
  // be deleted nor get other names, where the system can see to that (Windows).
  virtual std::unique_ptr<FoundItem> OpenFound(TextView start, TextView below) = 0;

  // False when it exists already, or its parent is missing.
  virtual bool CreateFolder(TextView path) = 0;
  // An empty file. Where one stands it is emptied if `overwrite`, otherwise this fails.
  virtual bool CreateTextFile(TextView path, bool overwrite) = 0;
  // The whole content. Nothing for a file that is missing, can't be read or is kept online.
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
  // Gives a file, folder or link exactly these of read-only, hidden, system and archive; the attributes
  // beside these four stay.
  virtual bool SetAttributes(TextView path, uint32_t attributes) = 0;

  // Takes away what writing and moving files into the folder left there when an earlier run was killed:
  // ordinary files with the very names that these calls make, which no running copy of the program can be
  // at work on. Everything else stays, and what lies below is not looked at. Does nothing where the folder is
  // missing or can't be read, or lies on another computer, which might let the caller wait.
  virtual void RemoveTemporaries(TextView folder) = 0;

  // In the order of their letters. Each is asked whether it is ready, which on the network may take long.
  virtual std::vector<Drive> Drives() = 0;
  // The type of one drive, as Drive numbers it, without asking the drive. Nothing for a letter that has none.
  virtual std::optional<int> DriveType(char16_t letter) = 0;
  // Asks one drive whether it is ready.
  virtual bool IsDriveReady(char16_t letter) = 0;
};

inline FileSystem* fileSystem = nullptr;

}  // namespace tavix::platform
