#pragma once

#include "text/text.h"

namespace tavix::platform {

// The result of Trust::Protect.
enum class Protection {
  Failed,     // the file or folder is missing or a link, its volume keeps no lists, or we have no right to it
  Unchanged,  // nobody else could change it already, so its list was left as it was
  Set,        // it has a new list
};

// Whose rights the program has, and who else could influence it through files. Paths are those of
// platform/file_system.h. A link as the last name is the link itself; only LiesAmongPrograms follows it.
// Nothing here throws or opens a file for reading.
class Trust {
 public:
  virtual ~Trust() = default;
  // Whether the program has the rights of an administrator or of the system. True when that can't be told.
  virtual bool Elevated() = 0;
  // Whether a file, folder or link belongs to anyone but this user, the administrators and the system. False
  // when it is missing, or the volume keeps no owners. True when it exists and its owner can't be told.
  virtual bool OwnedByOthers(TextView path) = 0;
  // Gives a file or folder an access list: only this user, the owner, the administrators and the system may
  // change it; other users may read it. A folder passes the list on to what is made in it later. Items
  // already in the folder keep their own lists.
  virtual Protection Protect(TextView path) = 0;
  // Whether a folder is, or lies in, the Windows folder or a folder of programs. Links are followed, and
  // names compared as the disk has them. A missing folder counts as its nearest folder above that exists.
  // False when there is none. True when it can't be told.
  virtual bool LiesAmongPrograms(TextView folder) = 0;
  // Renames a file, folder or link within its folder. False when the new name is taken, and when the system
  // would rename a link's target; nothing is changed then.
  virtual bool Rename(TextView path, TextView name) = 0;
};

// Never null. Without a host it is noTrust (platform/nothing.h).
extern Trust* trust;
extern Trust* const noTrust;

}  // namespace tavix::platform
