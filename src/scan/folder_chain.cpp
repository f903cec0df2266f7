#include "scan/folder_chain.h"

#include <algorithm>

#include "frame/support/file_system_object.h"

namespace tavix::mdlPubSelf {

bool FolderChain::List(const platform::EntryVisitor& visit, const platform::NameFilter& wanted,
                       const platform::GoesOn& goesOn) {
  if (!fileSystemObject) return false;
  const size_t level = levels_.size() - 1;
  TextView name;
  if (level > 0) name = TextView(path_).substr(levels_[level - 1].pathLength);
  platform::OpenFolder* folder = open_.Open(level, path_, name.substr(name.starts_with(u'\\') ? 1 : 0));
  return folder != nullptr && folder->List(visit, wanted, goesOn);
}

void FolderChain::Enter(TextView path) {
  path_ = path;
  levels_.push_back({path_.size(), {}});
  levels_.back().link = true;
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
    if (next.link && !MayEnter(path_)) continue;
    levels_.push_back({path_.size(), {}});
    levels_.back().link = next.link;
    return true;
  }
  return false;
}

void FolderChain::Leave() {
  levels_.pop_back();
  open_.Close(levels_.size());
  if (!levels_.empty()) path_.resize(levels_.back().pathLength);
}

// A link without a target is entered and lists nothing.
bool FolderChain::MayEnter(TextView link) {
  std::optional<Text> target = fileSystemObject.FolderIdentity(link);
  return !target || (!StandsIn(*target) && entered_.insert(*std::move(target)).second);
}

// A folder entered by its name lies in the folder of the level above. The folders above the first level, and
// above a link's target, are in no level: their whole lineage counts.
bool FolderChain::StandsIn(const Text& folder) {
  return std::ranges::any_of(levels_, [&](Level& level) {
    if (level.lineage.empty()) {
      level.lineage = fileSystemObject.Lineage(TextView(path_).substr(0, level.pathLength));
      if (!level.link) level.lineage.resize(std::min<size_t>(level.lineage.size(), 1));
    }
    return std::ranges::find(level.lineage, folder) != level.lineage.end();
  });
}

}  // namespace tavix::mdlPubSelf
