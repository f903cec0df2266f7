#pragma once

#include <memory>

#include "clean/safeguard.h"
#include "platform/file_system.h"
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
// nothing reached through a link below the walk's start. One object serves one clean.
//
// The folder of the last file stays open for the next one, and on Windows is held at its path. So call LetGo
// before anything else is done that could meet it, and from time to time.
class Removal {
 public:
  // Both are true when the item is known to have gone. Otherwise look at its path: it may stand, may never
  // have stood, or the shell may have taken it.
  //
  // "S" gives a file in the backup folder its own name, or the name with ".1" if that is taken; if both are
  // taken, the file stays. An elevated program moves nothing into a folder of Windows or of programs: the
  // file or folder stays.
  bool RemoveFile(const FoundPlace& place);
  // Removes an empty folder. For "S" the backup folder gets an empty folder of that name, or of the name with
  // ".1", and the folder is deleted whether or not that worked.
  bool RemoveFolder(const FoundPlace& place);
  // Closes the folder of the last file.
  void LetGo() { folder_ = nullptr; }

 private:
  // The folder that an item lies in. Null when it can't be opened.
  platform::FoundFolder* Open(const FoundPlace& place);

  Safeguard safeguard_;
  // The last folder that was opened: most rows of a folder follow one another.
  std::unique_ptr<platform::FoundFolder> folder_;
  Text path_;
  size_t startLength_ = 0;
};

}  // namespace tavix::mdlPubSelf
