#pragma once

#include "text/text.h"

namespace tavix::mdlPubSelf {

// Removes a file by the cleaning method in force: deleted, sent to the recycle bin, or moved into the
// backup folder under its own name, where that is taken under the name with ".1" behind it, and where that
// is taken too not at all. Any other method does nothing. Whether it has gone is for the caller to look.
void RemoveFileByMethod(TextView path);

// The same for a folder. The backup folder gets an empty folder of that name, or of the name with ".1", and
// the folder is deleted with all its content whether or not that could be made.
void RemoveFolderByMethod(TextView path);

}  // namespace tavix::mdlPubSelf
