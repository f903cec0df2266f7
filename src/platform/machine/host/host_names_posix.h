#pragma once

#include <cstdint>
#include <list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "text/text.h"

namespace tavix::machine {

// Identifies a folder of the host.
struct HostFolderId {
  uint64_t device = 0;
  uint64_t number = 0;
  bool operator==(const HostFolderId&) const = default;
};

// The state of a folder. It changes whenever a name is added or removed.
struct HostFolderState {
  HostFolderId id;
  int64_t modified = 0;  // nanoseconds
  int64_t changed = 0;
  bool operator==(const HostFolderState&) const = default;
};

// The state of an open folder. Nothing when it can't be told.
std::optional<HostFolderState> ReadFolderState(int folder);

// The names in a folder by their upper-cased form. Of names that differ only in case, the first in order.
struct HostNameTable {
  // Nothing when the open folder can't be read.
  static std::optional<HostNameTable> Read(int folder);
  // The name that equals `name` ignoring letter case. Null when there is none.
  const std::string* Find(TextView name) const;
  void Add(std::string_view name);

  std::unordered_map<Text, std::string> names;
  bool hasCaseDuplicates = false;  // two names differ only in case
};

// A cache of the names in recently searched folders. With it, a name in another case than the host's, or a
// missing name, doesn't cost a listing each time. A folder changed by others is read again. Our own changes
// are reported with Added and Removed.
class HostNames {
 public:
  // The name in an open folder that equals `name` ignoring letter case; of several, the first in order.
  // Nothing when there is none. Also nothing when the folder can't be read; `sure` is then set to false.
  std::optional<std::string> Find(int folder, TextView name, bool& sure);
  // Call these after each change of our own to the names in an open folder.
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

  std::list<Folder> folders_;  // the most recently used first
};

}  // namespace tavix::machine
