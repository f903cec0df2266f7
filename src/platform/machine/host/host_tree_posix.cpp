#include "platform/machine/host/host_tree_posix.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstring>
#include <vector>

#include "platform/machine/host/host_handle_posix.h"
#include "platform/machine/host/host_names_posix.h"

namespace tavix::machine {
namespace {

constexpr int kReadFolder = O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NOFOLLOW;

// A folder on the current path.
struct Level {
  std::string name;  // in the folder above
  HostFolderId id;
  std::vector<std::string> folders;  // not yet visited
};

bool IsFolder(int folder, const char* name, unsigned char type) {
  if (type != DT_UNKNOWN) return type == DT_DIR;
  struct stat facts {};
  return ::fstatat(folder, name, &facts, AT_SYMLINK_NOFOLLOW) == 0 && S_ISDIR(facts.st_mode);
}

class TreeWalk {
 public:
  TreeWalk(const HostAction& file, const HostAction& leave) : file_(file), leave_(leave) {}

  bool Run(int start, const std::string& name) {
    if (!Enter(start, name)) return false;
    while (levels_.size() > 1 || !levels_.back().folders.empty()) {
      if (!levels_.back().folders.empty()) {
        const std::string next = std::move(levels_.back().folders.back());
        levels_.back().folders.pop_back();
        if (!Enter(current_.Get(), next)) complete_ = false;
      } else if (!GoUp()) {
        return false;
      }
    }
    current_ = HostHandle();
    return leave_(start, name) && complete_;
  }

 private:
  bool Enter(int above, const std::string& name) {
    HostHandle opened(::openat(above, name.c_str(), kReadFolder));
    if (!opened) return false;
    const std::optional<HostFolderState> state = ReadFolderState(opened.Get());
    if (!state) return false;
    Level level{name, state->id, {}};
    std::vector<std::string> files;
    const bool read = ReadHostNames(opened.Get(), [&](const char* entry, unsigned char type) {
      (IsFolder(opened.Get(), entry, type) ? level.folders : files).emplace_back(entry);
    });
    if (!read) complete_ = false;
    for (const std::string& entry : files) complete_ = file_(opened.Get(), entry) && complete_;
    current_ = std::move(opened);
    levels_.push_back(std::move(level));
    return true;
  }

  // Checks that ".." is still the folder we came from: somebody may have moved this one elsewhere.
  bool GoUp() {
    HostHandle above(::openat(current_.Get(), "..", kReadFolder));
    const auto state = above ? ReadFolderState(above.Get()) : std::nullopt;
    if (!state || state->id != levels_[levels_.size() - 2].id) return false;
    complete_ = leave_(above.Get(), levels_.back().name) && complete_;
    levels_.pop_back();
    current_ = std::move(above);
    return true;
  }

  const HostAction& file_;
  const HostAction& leave_;
  std::vector<Level> levels_;
  HostHandle current_;  // of the last level
  bool complete_ = true;
};

}  // namespace

bool ReadHostNames(int folder, const std::function<void(const char* name, unsigned char type)>& visit) {
  // Uses its own handle: reading moves a position that duplicated handles share.
  HostHandle opened(::openat(folder, ".", kReadFolder));
  DIR* listing = opened ? ::fdopendir(opened.Get()) : nullptr;
  if (listing == nullptr) return false;
  static_cast<void>(opened.Release());
  errno = 0;
  while (const dirent* entry = ::readdir(listing)) {
    const bool self = std::strcmp(entry->d_name, ".") == 0 || std::strcmp(entry->d_name, "..") == 0;
    if (!self) visit(entry->d_name, entry->d_type);
    errno = 0;
  }
  const bool complete = errno == 0;
  ::closedir(listing);
  return complete;
}

bool WalkHostTree(int folder, const std::string& name, const HostAction& file, const HostAction& leave) {
  return TreeWalk(file, leave).Run(folder, name);
}

}  // namespace tavix::machine
