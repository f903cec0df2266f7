#pragma once

#include "text/text.h"

namespace tavix::platform {

// What became of an access list.
enum class Protection {
  Failed,  // the file or folder is missing or a link, its volume keeps no lists, or we have no right to it
  Stood,   // nobody else could change it before, so its list was left as it was
  Set,     // it has a new list
};

// With whose rights the program runs, and who else could steer it through files. Paths as
// platform/file_system.h has them; a link as the last name is the link itself, but for LiesAmongPrograms.
// Nothing here throws, and nothing opens a file for reading.
class Trust {
 public:
  virtual ~Trust() = default;
  // Whether the program has the rights of an administrator or of the system. True where it can't be told.
  virtual bool Elevated() = 0;
  // Whether a file, folder or link belongs to somebody other than this user, the administrators and the
  // system. False for what is missing, and where the volume knows no owners. True for what is there and
  // doesn't tell its owner.
  virtual bool OwnedByOthers(TextView path) = 0;
  // Sees to it that nobody but this user, the owner, the administrators and the system can change a file, or
  // a folder and what is made in it from then on; other users may read. What lies in the folder already
  // keeps the list that it has.
  virtual Protection Protect(TextView path) = 0;
  // Whether a folder is, or lies in, the Windows folder or a folder of programs, links followed and names
  // compared as the disk knows them. A folder that is missing lies where the next one above it lies. False
  // for a path that leads nowhere; true where it can't be told.
  virtual bool LiesAmongPrograms(TextView folder) = 0;
  // Gives a file, folder or link another name in its folder. False, and nothing changed, where something of
  // that name stands, and where the system would rename what a link leads to.
  virtual bool Rename(TextView path, TextView name) = 0;
};

inline Trust* trust = nullptr;

}  // namespace tavix::platform
