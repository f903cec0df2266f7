#pragma once

#include "platform/windows/opened_item.h"
#include "text/text.h"

// Deleting on disk. Paths are normal ones (windows_path.h).
namespace tavix::windows {

// As platform::FileSystem::DeleteFile and DeleteFolder. Each thing is opened as itself, from the handle of
// the folder that it was listed in, so that nothing put in its place meanwhile leads the deletion elsewhere.
// What can't be deleted stays and the rest goes.
bool DeleteOneFile(TextView path, bool force);
bool DeleteTree(TextView path, bool force);

// As platform::FoundItem::DeleteEmptyFolder, of an open folder that is no link.
bool DeleteEmptyTree(OpenedItem top);

}  // namespace tavix::windows
