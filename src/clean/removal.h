#pragma once

#include "clean/safeguard.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

// A row's file or folder: the folder where its walk began, and the names below it.
struct FoundPlace {
  Text folder;             // the one that it lies in
  Text name;               // not empty
  size_t startLength = 0;  // length of the walk's start, which `folder` begins with

  Text Path() const { return Concat(folder, u"\\", name); }
};

// Removes files and folders by the setting CleaningMethod: "D" deletes, "R" moves to the recycle bin, "S"
// moves to the backup folder; any other value does nothing. Removes nothing that the safeguard keeps and
// nothing reached through a link below the walk's start. The caller checks whether the item has gone. One
// object serves one clean.
class Removal {
 public:
  // "S" gives a file in the backup folder its own name, or the name with ".1" if that is taken; if both are
  // taken, the file stays. An elevated program moves nothing into a folder of Windows or of programs: the
  // file or folder stays.
  void RemoveFile(const FoundPlace& place);
  // Removes an empty folder. For "S" the backup folder gets an empty folder of that name, or of the name with
  // ".1", and the folder is deleted whether or not that worked.
  void RemoveFolder(const FoundPlace& place);

 private:
  Safeguard safeguard_;
};

}  // namespace tavix::mdlPubSelf
