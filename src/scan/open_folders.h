#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "frame/support/file_system_object.h"
#include "platform/file_system.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

// The folders that a walk down a tree holds open: at most the eight outermost and the eight innermost ones.
class OpenFolders {
 public:
  static constexpr size_t kOutermost = 8;
  static constexpr size_t kInnermost = 8;

  // `above`, which may be null, is the open folder of level 0 if somebody else holds it. It must outlive
  // this.
  explicit OpenFolders(platform::OpenFolder* above = nullptr) : above_(above) {}

  // Opens the folder of a level, counted from 0. `name` is its name in the folder of the level above, from
  // which it is opened if that is open: finding a deep folder by its whole path is slow. Null if it can't be
  // opened.
  platform::OpenFolder* Open(size_t level, TextView path, TextView name) {
    std::unique_ptr<platform::OpenFolder> opened;
    if (platform::OpenFolder* above = Above(level)) opened = above->Open(name);
    if (opened == nullptr) opened = fileSystemObject.Open(path);
    return Put(level, std::move(opened));
  }
  // Holds an open folder as that of a level.
  platform::OpenFolder* Put(size_t level, std::unique_ptr<platform::OpenFolder> folder) {
    open_.resize(level + 1);
    if (level >= kOutermost + kInnermost) open_[level - kInnermost].reset();
    open_[level] = std::move(folder);
    return open_[level].get();
  }
  // The folder of a level, which isn't held any more. Null if it isn't open.
  std::unique_ptr<platform::OpenFolder> Take(size_t level) {
    return level < open_.size() ? std::move(open_[level]) : nullptr;
  }
  // The same while it is held.
  platform::OpenFolder* At(size_t level) { return level < open_.size() ? open_[level].get() : nullptr; }
  // Closes the folders of this level and of those below it.
  void Close(size_t level) {
    if (level < open_.size()) open_.resize(level);
  }

 private:
  platform::OpenFolder* Above(size_t level) {
    if (level == 1 && above_ != nullptr) return above_;
    return level > 0 ? At(level - 1) : nullptr;
  }

  platform::OpenFolder* above_;
  std::vector<std::unique_ptr<platform::OpenFolder>> open_;
};

}  // namespace tavix::mdlPubSelf
