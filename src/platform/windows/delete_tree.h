#pragma once

#include "platform/windows/opened_item.h"
#include "text/text.h"

// Deleting on disk. Paths are normal ones (windows_path.h).
namespace tavix::windows {

// As platform::FileSystem::DeleteFile and DeleteFolder. Each item is opened as itself, not as a link's
// target, and relative to the handle of the folder that listed it. So nothing swapped in meanwhile can
// redirect the deletion. What can't be deleted stays; the rest is deleted.
bool DeleteOneFile(TextView path, bool force);
bool DeleteTree(TextView path, bool force);

// As platform::FoundItem::DeleteEmptyFolder, for an open folder that is not a link.
bool DeleteEmptyTree(OpenedItem top);

}  // namespace tavix::windows
