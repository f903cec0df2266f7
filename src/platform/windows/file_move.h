#pragma once

#include "platform/windows/opened_item.h"
#include "text/text.h"

// Moving a file. Paths are normal ones (windows_path.h). The contract is that of platform::FileSystem.
namespace tavix::windows {

bool MoveOneFile(TextView source, TextView destination);

// Moves what is open and no folder: by renaming where the destination is on its volume, otherwise by
// MoveByCopy. The handle may be closed afterwards.
bool MoveItem(OpenedItem& item, TextView destination);

// Copies a file under a temporary name beside the destination, checks the copy's size, gives it its name and
// deletes the file. When any of it fails, the file stands and no copy. False for a link, and for a file that
// is kept online: it isn't called in for this.
bool MoveByCopy(OpenedItem& item, TextView destination);

}  // namespace tavix::windows
