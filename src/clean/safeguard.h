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
  // The lineage of a folder that is to stay; empty where it is known to be missing, or a network doesn't
  // answer. Where the folder can't be looked at, it is that of the nearest folder above it that can, which
  // joins `closed`: the folder may be anywhere in there.
  static std::vector<Text> LineageOfKept(TextView folder, Identities& closed);
  // Whether a folder is one of these or lies in one, or that can't be told.
  bool LiesIn(const Identities& kept, TextView folder);
  const std::vector<Text>& LineageOf(TextView folder);

  std::optional<Identities> own_;      // folders whose content stays; nothing before they are asked for
  std::optional<Identities> holding_;  // folders that stay themselves, likewise
  Identities closed_;                  // folders in which no folder goes
  Text system_;                        // the system folder; empty when there is none
  // Of the folder asked for last: most rows of a folder follow one another.
  Text folder_;
  std::vector<Text> lineage_;
};

}  // namespace tavix::mdlPubSelf
