#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "platform/clock.h"
#include "platform/drive.h"
#include "platform/existence.h"
#include "text/text.h"

namespace tavix::platform {

// File attributes as the system numbers them.
constexpr uint32_t kReadOnly = 1;
constexpr uint32_t kHidden = 2;
constexpr uint32_t kSystem = 4;
constexpr uint32_t kArchive = 32;

// A file or folder as its folder's listing has it.
struct DirectoryEntry {
  TextView name;                     // as on the disk; valid during the visit
  uint64_t size = 0;                 // bytes; 0 for a folder
  DateTime modified = kUnknownTime;  // local time, as is `accessed`
  DateTime accessed = kUnknownTime;
  uint32_t attributes = 0;  // any of the four above
  bool folder = false;
  bool link = false;  // junction, symbolic link, alias of a store app, Linux socket, pipe or device
  // False when only `name`, `folder` and `link` could be read. Then size and attributes are 0 and the times
  // unknown.
  bool known = true;
};

// The same about one path.
struct FileFacts {
  Text path;  // absolute, names as on the disk; ends in a backslash only for a drive's root
  Text name;  // empty for the root of a drive
  uint64_t size = 0;
  DateTime modified = kUnknownTime;
  DateTime accessed = kUnknownTime;
  uint32_t attributes = 0;
  bool folder = false;
  bool link = false;
  bool known = true;  // as in DirectoryEntry
};

using EntryVisitor = std::function<void(const DirectoryEntry& entry)>;

// A test of file names. It must depend on the name alone: a file system may call it on another thread, and
// after the listing that it was given for. Copies of a filter are equal, all others are different. An empty
// filter takes every name.
class NameFilter {
 public:
  NameFilter() = default;
  template <class Test>
  requires std::is_invocable_r_v<bool, const Test&, TextView> NameFilter(Test test)
      : test_(std::make_shared<const std::function<bool(TextView)>>(std::move(test))) {}

  explicit operator bool() const { return test_ != nullptr; }
  bool operator()(TextView name) const { return (*test_)(name); }
  bool operator==(const NameFilter&) const = default;

 private:
  std::shared_ptr<const std::function<bool(TextView)>> test_;
};

// Asked now and then, on the caller's thread, whether a long listing goes on. An empty one isn't asked.
using GoesOn = std::function<bool()>;

// An open folder: it can be listed, and its subfolders opened, without looking up its path again. It stays
// the same folder when a name on its path changes or disappears.
//
// Once a subfolder is opened this way, a file system may list the next ones ahead (platform/read_ahead.h).
// Their entries are then as they were at some moment since the listing of the folder above.
class OpenFolder {
 public:
  virtual ~OpenFolder() = default;
  // Visits the entries of this folder, not of its subfolders, in the order of their upper-cased names. False,
  // and nothing visited, when the folder is missing or can't be read. The visitor must not change anything.
  // With `wanted`, files whose names it refuses are skipped without a look at them; folders never are.
  // When `goesOn` says no, the listing ends there: false, and entries at the beginning may have been visited.
  virtual bool List(const EntryVisitor& visit, const NameFilter& wanted, const GoesOn& goesOn) = 0;
  bool List(const EntryVisitor& visit, const NameFilter& wanted) { return List(visit, wanted, {}); }
  // Opens a subfolder by its name as listed. Null for a link. A missing one gives null, or an open folder
  // whose List fails.
  virtual std::unique_ptr<OpenFolder> Open(TextView name) = 0;
};

// A file or folder that a walk found, opened in a FoundFolder. It may be a link. All calls act on what was
// opened: if a folder above the item becomes a link later, nothing happens in the link's target.
class FoundItem {
 public:
  virtual ~FoundItem() = default;
  // False for a link, even for one to a folder.
  virtual bool IsFolder() const = 0;

  // Deletes a file or a link, also a read-only one. A link's target stays. True when the item is known to
  // have gone; false for a folder.
  virtual bool DeleteFile() = 0;
  // Deletes a folder with all folders and empty files in it, also read-only ones. Of a link to a folder,
  // deletes the link alone. Files with content and links in the folder stay, and so do the folders that hold
  // them. True when all of it is known to have gone.
  virtual bool DeleteEmptyFolder() = 0;
  // Moves a file or a link as FileSystem::MoveFile does. True when it is known to have gone from its place;
  // false for a folder.
  virtual bool MoveFileTo(TextView destination) = 0;
  // Closes the item, so that the shell can move it to the bin by its path while this object lives. The
  // folders on the path stay held, so that the path keeps leading to the item. False when a folder isn't
  // held: another program has it open for deletion. Then leave the path alone.
  virtual bool LeaveToShell() = 0;
};

// A folder that a walk found, opened name by name from the folder where the walk began. None of the names
// between the two is a link.
//
// On Windows, the folders on the path can't be deleted or renamed while this or an item opened in it lives,
// unless another program already has one open for that. So let it go before anything else is done there.
class FoundFolder {
 public:
  virtual ~FoundFolder() = default;
  // Whether the path by which it was opened is known to lead to it still. Otherwise open the path again.
  virtual bool Stands() = 0;
  // Opens the item of this name for deletion. It may outlive this object. Null when the name is missing, is
  // no single name, or can't be opened for deletion.
  virtual std::unique_ptr<FoundItem> Open(TextView name) = 0;
};

// The files of a machine.
//
// Paths are absolute and are read as Windows reads them: letter case is ignored, `/` is `\`, repeated
// separators count once (except the two that begin a network path), `.` and `..` are resolved, blanks and
// dots at the end of a name are dropped. A drive alone ("C:") is its root. Paths over 260 characters work.
// Every call fails for a relative or empty path.
//
// Links: all names but the last are followed. A link as the last name is the link itself for Look, for
// deleting, moving and setting attributes. Open, List, FileExists, FolderExists, reading and writing follow
// it. An alias of a store app, and a socket, pipe or device of a Linux program, counts as a link to an
// existing file that can't be read. FAT and exFAT drives have no links.
//
// Failure: no call throws. A call that fails changes nothing, with one exception: DeleteFolder may have
// deleted part of the folder.
//
// Online files (placeholders of a cloud drive, archived files): the listing of their folder has everything
// about them but their content. ReadFile fails for them, and so does a move onto another volume. No call
// downloads the content, except AppendToFile, and a move out of the cloud drive's folder where the system
// downloads for it. Look, List and OpenFolder read listings and open no file. FileExists and FolderExists
// open only a link's target, for its attributes; FolderIdentity and Lineage open only folders, for theirs.
class FileSystem {
 public:
  using EntryVisitor = platform::EntryVisitor;
  using NameFilter = platform::NameFilter;

  virtual ~FileSystem() = default;

  // The facts about a file, folder or link. Nothing when it is missing or can't be looked at.
  virtual std::optional<FileFacts> Look(TextView path) = 0;
  // Whether the item at a path is a link. Nothing when Look gives nothing. Asks for less than Look does.
  virtual std::optional<bool> IsLink(TextView path) {
    return Look(path).transform([](const FileFacts& facts) { return facts.link; });
  }
  // Whether a file (no folder) or a folder exists. A link counts as its target.
  // - True: it exists.
  // - False, known to be missing: no such name or folder, an impossible name, no absolute path, a link to
  //   nothing, a drive that doesn't exist or isn't ready. A folder is no file, and a file is no folder.
  // - Nothing, can't tell: no right to a folder on the path, links in circles, a network that doesn't answer,
  //   a failing device or system (a bad disk, no handles left).
  virtual Existence FileExists(TextView path) = 0;
  virtual Existence FolderExists(TextView path) = 0;
  // Opens a folder. A missing one gives null, or an open folder whose List fails.
  virtual std::unique_ptr<OpenFolder> Open(TextView folder) = 0;
  // Lists a folder as OpenFolder::List does. False when it is missing or can't be read.
  bool List(TextView folder, const EntryVisitor& visit, const NameFilter& wanted = {}) {
    const auto opened = Open(folder);
    return opened != nullptr && opened->List(visit, wanted);
  }
  // A text that is the same for two paths exactly when they lead to the same folder, links followed. Nothing
  // when the folder is missing or that can't be told.
  virtual std::optional<Text> FolderIdentity(TextView path) = 0;
  // The identity of a folder, links followed, then those of all folders above it, up to the root of its
  // drive. Empty when the folder is missing or that can't be told.
  virtual std::vector<Text> Lineage(TextView path) = 0;
  // The path that a link leads to, with all links resolved and names as on the disk. Nothing when the path is
  // missing, no link, or a link whose target is missing or can't be told.
  virtual std::optional<Text> ResolveLink(TextView path) = 0;
  // Opens the folder at `below` under the folder `start`; an empty `below` is `start` itself. `start` is
  // found like any path; from there on each name is opened by itself. Null when a name below it is missing, a
  // link, no folder or can't be opened.
  virtual std::unique_ptr<FoundFolder> OpenFound(TextView start, TextView below) = 0;

  // Makes a folder. False when the name is taken or the parent is missing.
  virtual bool CreateFolder(TextView path) = 0;
  // Makes an empty file. With `overwrite`, a file of the name is emptied; without, it makes this fail.
  virtual bool CreateTextFile(TextView path, bool overwrite) = 0;
  // The whole content of a file. Nothing when it is missing, can't be read or is kept online.
  virtual std::optional<std::string> ReadFile(TextView path) = 0;
  // Replaces the whole content, or makes the file. Writes a temporary file beside it and renames that, so a
  // crash leaves the old content or the new. The file keeps its attributes.
  virtual bool WriteFile(TextView path, std::string_view content) = 0;
  // Adds the bytes at the end of the file, or makes the file.
  virtual bool AppendToFile(TextView path, std::string_view content) = 0;

  // Deletes a file, or a link to one. A read-only one only with `force`; hidden and system ones always. False
  // when it is missing or stays.
  virtual bool DeleteFile(TextView path, bool force) = 0;
  // Deletes a folder with all its content, at any depth. Of a link, here or in the folder, only the link is
  // deleted. Read-only content only with `force`. False when the folder is missing, is a drive's root, or
  // part of it stays.
  virtual bool DeleteFolder(TextView path, bool force) = 0;
  // Moves a file to a new path. Its folder must exist and the name be free. Onto another volume: copies the
  // file, checks the copy's size, deletes the source. A failed copy leaves the source and no partial copy.
  virtual bool MoveFile(TextView source, TextView destination) = 0;
  // Sets read-only, hidden, system and archive to exactly those given. All other attributes stay. False when
  // the item is missing or the system refuses.
  virtual bool SetAttributes(TextView path, uint32_t attributes) = 0;

  // Deletes the temporary files that WriteFile and MoveFile left in this folder when an earlier run was
  // killed: ordinary files with the names that these calls give, and not in use by a running copy of the
  // program. Everything else stays; subfolders aren't looked at. Does nothing when the folder is missing or
  // can't be read, or when it is on another computer, which could be slow to answer.
  virtual void RemoveTemporaries(TextView folder) = 0;

  // All drives in the order of their letters. Each is asked whether it is ready, except network drives, which
  // could take long to answer: here they count as not ready.
  virtual std::vector<Drive> Drives() = 0;
  // The type of one drive, numbered as in Drive, without access to the drive. Nothing for a free letter.
  virtual std::optional<int> DriveType(char16_t letter) = 0;
  // Whether one drive is ready. Asks the drive. False for a free letter.
  virtual bool IsDriveReady(char16_t letter) = 0;
};

// Never null. Without a host it is noFileSystem (platform/nothing.h).
extern FileSystem* fileSystem;
extern FileSystem* const noFileSystem;

}  // namespace tavix::platform
