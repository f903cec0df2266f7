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

// Opens the folder at a path below an open one. The path has names joined by slashes and may be of any
// length; the empty path is the folder itself. The handle is O_PATH, which needs no right to read the folder.
// No link is followed. An empty handle when it is missing.
HostHandle OpenHostFolder(int from, const std::string& path);

// A folder of the host, opened with O_PATH, which needs no right to read it.
class HostOpenFolder {
 public:
  explicit HostOpenFolder(HostHandle handle) : handle_(std::move(handle)) {}
  // A folder whose path is watched since before it was opened.
  HostOpenFolder(HostHandle handle, std::shared_ptr<HostWatch> watch)
      : handle_(std::move(handle)), watch_(std::move(watch)), generation_(watch_->Generation()) {}

  int Get() const { return handle_.Get(); }
  bool Watched() const { return watch_ != nullptr; }
  // Whether its path is known to lead to it still, and nobody else has added a name to it.
  bool Stands() { return Watched() && watch_->Generation() == generation_ && watch_->Quiet(); }
  // For a watched folder: its name that equals `name` ignoring letter case, or null. Reads all names at the
  // first call. When they can't be read, `sure` is set to false.
  const std::string* FindName(TextView name, bool& sure);
  // Whether a name is known to be missing, without reading the folder.
  bool Lacks(TextView name) const { return names_ && names_->Find(name) == nullptr; }
  // Call these after our own changes.
  void Added(std::string_view name);
  void Removed(TextView name);

 private:
  HostHandle handle_;
  std::shared_ptr<HostWatch> watch_;
  unsigned generation_ = 0;
  std::optional<HostNameTable> names_;
};

// Opens folders below a root. A folder requested often stays open and is reused while its watch shows that
// its path still leads to it.
class HostFolders {
 public:
  explicit HostFolders(HostHandle root) : root_(std::move(root)) {}

  // The folder at a path of names joined by slashes; the empty path is the root. No link is followed. Null
  // when it is missing.
  std::shared_ptr<HostOpenFolder> Open(const std::string& path);

 private:
  struct Known {
    std::string path;
    int requests = 0;                           // since the last try to keep it open
    std::shared_ptr<HostOpenFolder> kept = {};  // null unless it is kept open
    int threshold = 4;                          // requests before the next try to keep it open
  };

  bool Keep(Known& folder);

  HostHandle root_;
  const std::shared_ptr<HostWatch> watch_ = std::make_shared<HostWatch>();
  std::list<Known> known_;  // the most recently requested first
};

}  // namespace tavix::machine
