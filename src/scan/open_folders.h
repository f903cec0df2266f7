#pragma once

#include <memory>
#include <vector>

#include "frame/support/file_system_object.h"
#include "platform/file_system.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

// The folders that a walk down a tree holds open: at most eight, the innermost ones.
class OpenFolders {
 public:
  // Opens the folder of a level, counted from 0. `name` is its name in the folder of the level above, from
  // which it is opened if that is open: finding a deep folder by its whole path is slow. Null if it can't be
  // opened.
  platform::OpenFolder* Open(size_t level, TextView path, TextView name) {
    constexpr size_t kMostOpen = 8;
    open_.resize(level + 1);
    if (level >= kMostOpen) open_[level - kMostOpen].reset();
    if (level > 0 && open_[level - 1] != nullptr) open_[level] = open_[level - 1]->Open(name);
    if (open_[level] == nullptr) open_[level] = fileSystemObject.Open(path);
    return open_[level].get();
  }
  // Closes the folders of this level and of those below it.
  void Close(size_t level) {
    if (level < open_.size()) open_.resize(level);
  }

 private:
  std::vector<std::unique_ptr<platform::OpenFolder>> open_;
};

}  // namespace tavix::mdlPubSelf
