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

namespace tavix::machine {

// Where the files of a machine lie, whatever keeps them: memory or a folder of the host. A store knows
// folders, files and links; drives, attributes and paths are the business of MachineFileSystem.

enum class EntryKind { File, Folder, Link };

struct StoreEntry {
  Text name;  // as it was made
  EntryKind kind = EntryKind::File;
  uint64_t size = 0;  // 0 for folders and links
  platform::DateTime modified = platform::kUnknownTime;
  platform::DateTime accessed = platform::kUnknownTime;
  bool known = true;  // false where a listing has the name and the kind only
};

// Where a link leads: names one below the other, from the folder of the link on or from the root of the
// store. `..` may stand among them.
struct LinkTarget {
  bool fromRoot = false;
  std::vector<Text> names;
};

enum class MoveResult { Done, Failed, OtherVolume };

// An open folder. It stays the same folder when a folder above gets another name. Names are matched exactly
// but in Find; no operation follows a link. What fails changes nothing, but for RemoveTree
// and RemoveEmptyTree.
class StoreFolder {
 public:
  virtual ~StoreFolder() = default;

  // What stands under a name, letter case aside; of two that differ only in case the exact one, else the
  // first in order. Nothing where nothing does. Where it can't be told, nothing as well, and `sure` becomes
  // false.
  virtual std::optional<StoreEntry> Find(TextView name, bool& sure) = 0;
  std::optional<StoreEntry> Find(TextView name) {
    bool sure = true;
    return Find(name, sure);
  }
  // Everything in the folder, in any order. What can be no name on Windows is left out. With `wanted`, files
  // whose names it doesn't want may be left out.
  using NameFilter = std::function<bool(TextView name)>;
  virtual bool Read(std::vector<StoreEntry>& entries, const NameFilter& wanted) = 0;
  bool Read(std::vector<StoreEntry>& entries) { return Read(entries, {}); }
  // Null when it is missing or no folder, or can't be opened.
  virtual std::unique_ptr<StoreFolder> Open(TextView name) = 0;
  // Nothing for a link that leads out of the store.
  virtual std::optional<LinkTarget> ReadLink(TextView name) = 0;
  virtual std::optional<std::string> ReadFile(TextView name) = 0;

  virtual bool MakeFolder(TextView name) = 0;
  // A new empty file.
  virtual bool MakeFile(TextView name) = 0;
  // The whole content of a new file or one that stands there; a crash leaves the old or the new content.
  virtual bool WriteFile(TextView name, std::string_view content) = 0;
  // Puts the bytes at the end of a file, or makes it.
  virtual bool Append(TextView name, std::string_view content) = 0;
  // A file or link.
  virtual bool Remove(TextView name) = 0;
  // A folder with all that lies in it, links in it as such. False when something of it stays.
  virtual bool RemoveTree(TextView name) = 0;
  // The same, but a file with content and a link stay.
  virtual bool RemoveEmptyTree(TextView name) = 0;
  // The bytes of a file, or of all files in a folder and below.
  virtual std::optional<uint64_t> TreeSize(TextView name) = 0;
  // Gives a file, link or folder another name or place where nothing stands. `to` is of the same store.
  virtual MoveResult Move(TextView name, StoreFolder& to, TextView newName) = 0;
  // Copies a file with its time of change to a name where nothing stands. On failure no half file stays.
  virtual bool Copy(TextView name, StoreFolder& to, TextView newName) = 0;
  // Takes away what WriteFile and Copy left in this folder when they were killed. Only for a store that
  // nobody else is at work on. A store whose files come whole has nothing to do.
  virtual void RemoveTemporaries() {}
};

class FileStore {
 public:
  virtual ~FileStore() = default;
  // The folder of the whole machine. Null when it has gone or can't be opened.
  virtual std::unique_ptr<StoreFolder> Root() = 0;
  // The folder below the root with exactly these names and no link among them; null when there is none
  // or it can't be opened.
  virtual std::unique_ptr<StoreFolder> Open(const std::vector<Text>& names) = 0;
};

}  // namespace tavix::machine
