#pragma once

#include <memory>
#include <unordered_set>
#include <utility>
#include <vector>

#include "platform/file_system.h"
#include "scan/open_folders.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

// The chain of folders that a walk down a tree is in, each with the subfolders still to enter. A level keeps
// little more than a name, so a chain may have any length.
//
// A link to a folder is entered like a folder. It is skipped if the walk is already in its target, or has
// entered its target by another link: such links lead in circles and multiply the findings.
class FolderChain {
 public:
  int Depth() const { return static_cast<int>(levels_.size()); }
  // The innermost folder. Only a drive's root ends in a backslash.
  const Text& Path() const { return path_; }
  // The length of the first folder's path, with which Path begins.
  size_t StartLength() const { return levels_.front().pathLength; }

  // Lists the innermost folder like platform::OpenFolder::List. False if it can't be listed.
  bool List(const platform::EntryVisitor& visit, const platform::NameFilter& wanted,
            const platform::GoesOn& goesOn);
  // The innermost folder if List or Hold has opened it; otherwise null.
  platform::OpenFolder* Opened() { return open_.At(levels_.size() - 1); }
  // Holds the innermost folder open, which somebody else has opened.
  void Hold(std::unique_ptr<platform::OpenFolder> folder) {
    open_.Put(levels_.size() - 1, std::move(folder));
  }

  // Starts the chain with a folder, by its whole path.
  void Enter(TextView path);
  // Notes a subfolder of the innermost folder, to be entered later.
  void AddSubFolder(const platform::DirectoryEntry& entry);
  void ForgetSubFolders();
  // Enters the next noted subfolder of the innermost folder. False if none is left.
  bool GoToNext();
  // Returns to the folder above.
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
    bool link = false;               // the first folder counts as one
    std::vector<Text> lineage = {};  // read once a link below needs it
  };

  bool MayEnter(TextView link);
  bool StandsIn(const Text& folder);

  Text path_;
  std::vector<Level> levels_;
  OpenFolders open_;
  std::unordered_set<Text> entered_;  // the targets of all links entered
};

}  // namespace tavix::mdlPubSelf
