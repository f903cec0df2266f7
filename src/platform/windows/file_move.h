#pragma once

#include "platform/windows/opened_item.h"
#include "text/text.h"

// Moving files. Paths are normal ones (windows_path.h). The contract is that of
// platform::FileSystem::MoveFile.
namespace tavix::windows {

bool MoveOneFile(TextView source, TextView destination);

// Moves an open file or link: renames it on the same volume, otherwise copies it with MoveByCopy. False for a
// folder and on failure. The handle may be closed afterwards.
bool MoveItem(OpenedItem& item, TextView destination);

// Copies a file to a temporary name next to the destination, checks the copy's size, renames the copy and
// deletes the source. On failure the source stays and no copy is left. False for a link, and for an online
// file, which is never downloaded for a move.
bool MoveByCopy(OpenedItem& item, TextView destination);

}  // namespace tavix::windows
