#pragma once

#include "clean/safeguard.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

// Where a row's file or folder lies: the folder where its walk began, and names below it.
struct FoundPlace {
  Text folder;             // that it lies in
  Text name;               // not empty
  size_t startLength = 0;  // characters of `folder` that name the start

  Text Path() const { return Concat(folder, u"\\", name); }
};

// Removes files and folders by the cleaning method in force: "D" deletes, "R" sends to the recycle bin, "S"
// saves to the backup folder; any other method does nothing. Nothing that the safeguard keeps is removed, and
// nothing that is reached through a link below the start. Whether it has gone is for the caller to look. One
// object serves one clean.
class Removal {
 public:
  // With raised rights, "S" saves to no folder of Windows or of programs: the file or folder stays then.
  // "S" moves a file into the backup folder under its own name, where that is taken under the name with ".1"
  // added, and where that is taken too not at all.
  void RemoveFile(const FoundPlace& place);
  // An empty folder. For "S" the backup folder gets an empty folder of that name, or of the name with ".1",
  // and the folder is deleted whether or not that could be made.
  void RemoveFolder(const FoundPlace& place);

 private:
  Safeguard safeguard_;
};

}  // namespace tavix::mdlPubSelf
