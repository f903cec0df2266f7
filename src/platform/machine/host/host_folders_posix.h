#pragma once

#include <list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/machine/host/host_handle_posix.h"
#include "platform/machine/host/host_names_posix.h"
#include "platform/machine/host/host_watch_posix.h"

namespace tavix::machine {

// The folder below an open one at a path of names joined by slashes, of any length, the empty path for the
// folder itself; opened by name only, which needs no right to read it. No link is followed. An empty handle
// where there is none.
HostHandle OpenHostFolder(int from, const std::string& path);

// A folder of the host, opened by name only, which needs no right to read it.
class HostOpenFolder {
 public:
  // `watched` says that no name comes into the folder while this is in use.
  HostOpenFolder(HostHandle handle, bool watched) : handle_(std::move(handle)), watched_(watched) {}

  int Get() const { return handle_.Get(); }
  bool Watched() const { return watched_; }
  // Of a watched folder: the name that equals `name` letter case aside, or null; reads all names at the
  // first call. Where they can't be read, `sure` becomes false.
  const std::string* FindName(TextView name, bool& sure);
  // Whether a name is known to be missing, without a look at the folder.
  bool Lacks(TextView name) const { return names_ && names_->Find(name) == nullptr; }
  // Call this after a change of our own.
  void Added(std::string_view name);
  void Removed(TextView name);

 private:
  HostHandle handle_;
  bool watched_;
  std::optional<HostNameTable> names_;
};

// Opens folders below one. A folder that is asked for again and again stays open, and is handed out for as
// long as its path is sure to lead to it still.
class HostFolders {
 public:
  explicit HostFolders(HostHandle root) : root_(std::move(root)) {}

  // The folder at a path of names joined by slashes, the empty path for the root; no link is followed. Null
  // where there is none.
  std::shared_ptr<HostOpenFolder> Open(const std::string& path);

 private:
  struct Known {
    std::string path;
    int asked = 0;                              // times since it was last tried to keep it open
    std::shared_ptr<HostOpenFolder> kept = {};  // once it was asked for often
    int wanted = 4;                             // times after which it is tried
    unsigned generation = 0;                    // of the watch over it
  };

  bool Keep(Known& folder);

  HostHandle root_;
  HostWatch watch_;
  std::list<Known> known_;  // the one asked for last first
};

}  // namespace tavix::machine
