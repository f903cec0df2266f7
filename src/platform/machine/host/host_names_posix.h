#pragma once

#include <cstdint>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "text/text.h"

namespace tavix::machine {

// Which folder of the host.
struct HostFolderId {
  uint64_t device = 0;
  uint64_t number = 0;
  bool operator==(const HostFolderId&) const = default;
};

// How a folder is at a moment: a name that comes or goes changes it.
struct HostFolderState {
  HostFolderId id;
  int64_t modified = 0;  // nanoseconds
  int64_t changed = 0;
  bool operator==(const HostFolderState&) const = default;
};

// Of an open folder. Nothing when it can't be told.
std::optional<HostFolderState> ReadFolderState(int folder);

// The names in a folder by their capitals; of two that differ only in case the first in order.
struct HostNameTable {
  // Nothing when the open folder can't be read.
  static std::optional<HostNameTable> Read(int folder);
  // The name that equals `name` letter case aside; null when there is none.
  const std::string* Find(TextView name) const;
  void Add(std::string_view name);

  std::unordered_map<Text, std::string> names;
  bool twins = false;  // two names differ only in case
};

// The names in the folders that were searched last, by their capitals, so that names in another case than
// the host's, and names that aren't there, don't cost a listing each. A folder that others changed is read
// anew; our own changes are taken over.
class HostNames {
 public:
  // The name in an open folder that equals `name` letter case aside, the first in order of two. Nothing when
  // there is none. Where the folder can't be read, nothing as well, and `sure` becomes false.
  std::optional<std::string> Find(int folder, TextView name, bool& sure);
  // Call this after each change of the names in an open folder.
  void Added(int folder, std::string_view name);
  void Removed(int folder, std::string_view name);
  void Forget() { folders_.clear(); }

 private:
  struct Folder {
    HostFolderState state;
    HostNameTable table;
  };

  std::list<Folder>::iterator Known(const HostFolderId& id);
  Folder* Changed(int folder);

  std::list<Folder> folders_;  // the one used last first
};

}  // namespace tavix::machine
