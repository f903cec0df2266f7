#pragma once

#include <optional>
#include <vector>

#include "platform/file_system.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

// The folders that a walk down a tree stands in, one below the other, each with its subfolders still to be
// entered. It holds a name for each of them and no more, and a chain may be of any length.
//
// A link to a folder is entered like a folder, also one that leads back into a folder of the chain: such a
// walk goes round until the system refuses the path for its many links. While it goes round, it enters no
// other link that leads back, or loops would multiply without end.
class FolderChain {
 public:
  int Depth() const { return static_cast<int>(levels_.size()); }
  // The innermost folder, no backslash at the end but a drive's.
  const Text& Path() const { return path_; }

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
    std::optional<Text> identity = {};                // once a link made it be asked for
    bool turns = false;                               // the first that was entered by a link leading back
  };

  bool MayEnter(TextView path, TextView name);
  const std::optional<Text>& Identity(Level& level);

  Text path_;
  std::vector<Level> levels_;
  std::optional<Text> turning_;  // where the link lies that is being gone round by, and its name
};

}  // namespace tavix::mdlPubSelf
