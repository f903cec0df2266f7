#pragma once

#include <optional>
#include <unordered_set>
#include <vector>

#include "text/text.h"

namespace tavix::mdlPubSelf {

// What a clean leaves alone, whatever its rows say. It answers for one clean, which asks it right before each
// removal. Folders are compared as the disk knows them: letter case, short names and links make no
// difference. What can't be told is left alone.
class Safeguard {
 public:
  // Whether a file, or a link to one, may be removed from a folder. False in the program's data folders and
  // in a backup folder, unless that is a drive's root, and for a library in the system folder itself, which
  // is the copy that makes others redundant.
  bool AllowsFile(TextView folder, TextView name);
  // Whether an empty folder, or a link to one, may be removed from the folder that it lies in. False where
  // AllowsFile is, for a drive's root, for a folder that isn't empty or can't be read, and for one that is or
  // holds a folder of the program's data, a backup folder or a folder that the system names.
  bool AllowsFolder(TextView folder, TextView name);

 private:
  using Identities = std::unordered_set<Text>;

  void ReadOwnFolders();
  void ReadNamedFolders();
  // The lineage of a folder that is to stay. `told` becomes false where the folder is there and it can't be
  // had.
  static std::vector<Text> LineageOfKept(const Text& folder, bool& told);
  // Whether what lies in the folder is the program's own or the user's backup.
  bool KeepsContent(TextView folder);
  const std::vector<Text>& LineageOf(TextView folder);

  // The folders whose content stays; the folders that never go themselves. Nothing before they are asked for.
  std::optional<Identities> own_;
  std::optional<Identities> holding_;
  std::optional<Text> systemFolder_;
  // Whether the identities of all these folders that are there are known.
  bool ownTold_ = true;
  bool systemTold_ = true;
  bool namedTold_ = true;
  // Of the folder asked for last: most rows of a folder follow one another.
  Text folder_;
  std::vector<Text> lineage_;
};

}  // namespace tavix::mdlPubSelf
