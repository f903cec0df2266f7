#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clock.h"
#include "platform/folder_listing.h"
#include "text/text.h"

namespace tavix::machine {

// Storage for the files of a machine: memory or a folder of the host. A store knows folders, files and links.
// Drives, attributes and Windows paths are added by MachineFileSystem.

enum class EntryKind { File, Folder, Link };

struct StoreEntry {
  Text name;  // as stored
  EntryKind kind = EntryKind::File;
  uint64_t size = 0;  // 0 for folders and links
  platform::DateTime modified = platform::kUnknownTime;
  platform::DateTime accessed = platform::kUnknownTime;
  bool known = true;  // false when only the name and the kind could be read
};

// The target of a link: a path of names, relative to the link's folder or to the root of the store. It may
// contain `..`.
struct LinkTarget {
  bool fromRoot = false;
  std::vector<Text> names;
};

enum class MoveResult { Done, Failed, OtherVolume };

// An open folder. List and Open of a folder of the host may be called by any thread, everything else by one
// at a time. It stays the same folder when a folder above it is renamed. Names match exactly, except in Find.
// No operation follows a link. Booleans are false on failure. A failed call changes nothing, except
// RemoveTree and RemoveEmptyTree, which may have deleted a part.
class StoreFolder {
 public:
  virtual ~StoreFolder() = default;

  // Whether the path by which FileStore::Open found it is known to lead to it still.
  virtual bool Stands() { return false; }
  // The entry of a name, ignoring letter case. If two names differ only in case: the exact one, otherwise the
  // first in order. Nothing when it is missing. Also nothing when that can't be told; `sure` is then set to
  // false.
  virtual std::optional<StoreEntry> Find(TextView name, bool& sure) = 0;
  std::optional<StoreEntry> Find(TextView name) {
    bool sure = true;
    return Find(name, sure);
  }
  // Adds all entries of the folder in any order, except those whose name is impossible on Windows. False when
  // the folder can't be read.
  virtual bool Read(std::vector<StoreEntry>& entries) = 0;
  // The same for a listing. No link counts as a folder. Files whose names `wanted` refuses are left out.
  // False also when the reading is given up.
  virtual bool List(platform::FolderListing& listing, const platform::NameFilter& wanted);
  // Opens a subfolder. Null when it is missing, no folder, or can't be opened.
  virtual std::unique_ptr<StoreFolder> Open(TextView name) = 0;
  // The target of a link. Nothing when it isn't a link, can't be read or leads out of the store.
  virtual std::optional<LinkTarget> ReadLink(TextView name) = 0;
  virtual std::optional<std::string> ReadFile(TextView name) = 0;

  virtual bool MakeFolder(TextView name) = 0;
  // Makes an empty file. False when the name is taken.
  virtual bool MakeFile(TextView name) = 0;
  // Makes a file or replaces its whole content. A crash leaves the old or the new content.
  virtual bool WriteFile(TextView name, std::string_view content) = 0;
  // Adds the bytes at the end of a file, or makes the file.
  virtual bool Append(TextView name, std::string_view content) = 0;
  // Removes a file or link.
  virtual bool Remove(TextView name) = 0;
  // Removes a folder with all its content. Of links in it, only the link is removed. False when anything
  // stays.
  virtual bool RemoveTree(TextView name) = 0;
  // The same, but files with content and links stay.
  virtual bool RemoveEmptyTree(TextView name) = 0;
  // The size of a file, or of all files in a folder and below it, in bytes. Nothing when it is missing or
  // can't be read.
  virtual std::optional<uint64_t> TreeSize(TextView name) = 0;
  // Moves or renames a file, link or folder. The new name must be free. `to` belongs to the same store.
  virtual MoveResult Move(TextView name, StoreFolder& to, TextView newName) = 0;
  // Copies a file and its time of modification. The new name must be free. A failure leaves no partial copy.
  virtual bool Copy(TextView name, StoreFolder& to, TextView newName) = 0;
  // Removes temporary files that WriteFile and Copy left in this folder when they were killed. Call it only
  // when nobody else uses the store. Does nothing for a store that has no temporary files.
  virtual void RemoveTemporaries() {}
};

class FileStore {
 public:
  virtual ~FileStore() = default;
  // The root folder of the machine. Null when it is gone or can't be opened.
  virtual std::unique_ptr<StoreFolder> Root() = 0;
  // Opens the folder at a path of exact names below the root. Null when it is missing, a link is on the path,
  // or it can't be opened.
  virtual std::unique_ptr<StoreFolder> Open(const std::vector<Text>& names) = 0;
  // How many folders may be held open besides those in use.
  virtual size_t MostSpareFolders() const { return SIZE_MAX; }
};

}  // namespace tavix::machine
