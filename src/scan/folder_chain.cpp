#include "scan/folder_chain.h"

#include <algorithm>
#include <memory>

#include "frame/support/file_system_object.h"

namespace tavix::mdlPubSelf {

// From the folder above: to find a deep folder by its path takes a while.
bool FolderChain::List(const platform::EntryVisitor& visit, const platform::NameFilter& wanted) {
  constexpr size_t kMostOpen = 8;
  if (!fileSystemObject) return false;
  const size_t depth = levels_.size();
  Level& level = levels_.back();
  if (depth > kMostOpen) levels_[depth - 1 - kMostOpen].open.reset();
  if (depth > 1 && levels_[depth - 2].open != nullptr) {
    const TextView name = TextView(path_).substr(levels_[depth - 2].pathLength);
    level.open = levels_[depth - 2].open->Open(name.substr(name.starts_with(u'\\') ? 1 : 0));
  }
  if (level.open == nullptr) level.open = fileSystemObject.Open(path_);
  return level.open != nullptr && level.open->List(visit, wanted);
}

void FolderChain::Enter(TextView path) {
  path_ = path;
  levels_.push_back({path_.size(), {}});
}

void FolderChain::AddSubFolder(const platform::DirectoryEntry& entry) {
  levels_.back().subFolders.push_back({Text(entry.name), entry.link});
}

void FolderChain::ForgetSubFolders() { levels_.back().subFolders.clear(); }

bool FolderChain::GoToNext() {
  while (levels_.back().next < levels_.back().subFolders.size()) {
    Level& level = levels_.back();
    const SubFolder next = std::move(level.subFolders[level.next++]);
    path_.resize(level.pathLength);
    if (!path_.ends_with(u'\\')) path_ += u'\\';
    path_ += next.name;
    const bool turning = turning_.has_value();
    if (next.link && !MayEnter(path_, next.name)) continue;
    levels_.push_back({path_.size(), {}});
    levels_.back().turns = !turning && turning_;
    return true;
  }
  return false;
}

void FolderChain::Leave() {
  if (levels_.back().turns) turning_.reset();
  levels_.pop_back();
  if (!levels_.empty()) path_.resize(levels_.back().pathLength);
}

bool FolderChain::MayEnter(TextView path, TextView name) {
  const std::optional<Text> target = fileSystemObject.FolderIdentity(path);
  if (!target) return true;
  const bool back = std::ranges::any_of(levels_, [&](Level& level) { return Identity(level) == target; });
  if (!back) return true;
  Text link = Concat(Identity(levels_.back()).value_or(Text()), u"\\", name);
  if (turning_) return *turning_ == link;
  turning_ = std::move(link);
  return true;
}

const std::optional<Text>& FolderChain::Identity(Level& level) {
  if (!level.identity) {
    level.identity =
        fileSystemObject.FolderIdentity(TextView(path_).substr(0, level.pathLength)).value_or(Text());
  }
  return level.identity;
}

}  // namespace tavix::mdlPubSelf
