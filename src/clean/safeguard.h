#pragma once

#include <optional>
#include <unordered_set>
#include <vector>

#include "text/text.h"

namespace tavix::mdlPubSelf {

// What a clean leaves alone, whatever its rows say. One object serves one clean, which asks right before each
// removal. Folders are compared by the disk's identities, so letter case, short names and links make no
// difference. What can't be told is left alone.
class Safeguard {
 public:
  // Whether a file, or a link to one, in this folder may be removed. False in the program's data folders, in
  // a backup folder that is no drive's root, and for a library in the system folder itself: that copy makes
  // the others redundant.
  bool AllowsFile(TextView folder, TextView name);
  // Whether an empty folder, or a link to one, in this folder may be removed. False in the places where
  // AllowsFile is false; for a drive's root; for a folder that isn't empty or can't be read; and for a folder
  // that is or holds a data folder, a backup folder, or a folder that the system names or keeps empty.
  bool AllowsFolder(TextView folder, TextView name);

 private:
  using Identities = std::unordered_set<Text>;

  void ReadOwnFolders();
  void ReadNamedFolders();
  // The identities of a folder to keep and of the folders above it. Empty if the folder is known to be
  // missing, or on another computer that doesn't answer. If it can't be looked at, they begin with the
  // nearest folder above that can. That folder joins `closed`: the folder to keep may be anywhere in it.
  static std::vector<Text> LineageOfKept(TextView folder, Identities& closed);
  // Learns about the folder that an item lies in. Needs the folders that ReadOwnFolders reads.
  void LookAt(TextView folder);
  // Whether that folder is one of these or lies in one. True if that can't be told.
  bool LiesIn(const Identities& kept) const;

  std::optional<Identities> own_;      // folders whose content stays; nothing until needed
  std::optional<Identities> holding_;  // folders that stay themselves; nothing until needed
  bool namesAreKnown_ = false;         // whether the system has told the folders that it names
  Identities closed_;                  // folders from which no folder is removed
  Text system_;                        // the system folder; empty when there is none
  // What LookAt learnt about the last folder: most rows of a folder follow one another.
  std::optional<Text> folder_;
  std::vector<Text> lineage_;  // empty if it can't be told
  bool liesInOwn_ = true;
  bool isSystem_ = false;
};

}  // namespace tavix::mdlPubSelf
