#pragma once

#include <memory>
#include <unordered_set>
#include <vector>

#include "platform/file_system.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

// The folders that a walk down a tree stands in, one below the other, each with its subfolders still to be
// entered. It holds a name for each of them and no more, and a chain may be of any length.
//
// A link to a folder is entered like a folder. It is passed over where the walk stands in its target already,
// or has entered its target through a link before: such links would lead round and multiply the findings.
class FolderChain {
 public:
  int Depth() const { return static_cast<int>(levels_.size()); }
  // The innermost folder, no backslash at the end but a drive's.
  const Text& Path() const { return path_; }
  // How much of the path names the first folder.
  size_t StartLength() const { return levels_.front().pathLength; }

  // Lists the innermost folder, as platform::FileSystem::List does.
  bool List(const platform::EntryVisitor& visit, const platform::NameFilter& wanted);

  // Goes into a folder by its whole path, from none.
  void Enter(TextView path);
  // A subfolder of the innermost folder, to be entered in its turn.
  void AddSubFolder(const platform::DirectoryEntry& entry);
  void ForgetSubFolders();
  // Goes into the next subfolder of the innermost folder. False when there is none left.
  bool GoToNext();
  // Goes back to the folder above.
  void Leave();

 private:
  struct SubFolder {
    Text name;
    bool link = false;
  };
  struct Level {
    size_t pathLength = 0;
    std::vector<SubFolder> subFolders;
    size_t next = 0;
    std::unique_ptr<platform::OpenFolder> open = {};  // of the innermost few that were listed
    bool link = false;                                // the first folder counts as one
    std::vector<Text> lineage = {};                   // once a link below made it be asked for
  };

  bool MayEnter(TextView link);
  bool StandsIn(const Text& folder);

  Text path_;
  std::vector<Level> levels_;
  std::unordered_set<Text> entered_;  // the targets of all links entered
};

}  // namespace tavix::mdlPubSelf
