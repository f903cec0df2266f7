#pragma once

#include "text/text.h"

// Moving a file. Paths are normal ones (windows_path.h). The contract is that of platform::FileSystem.
namespace tavix::windows {

// By renaming where both paths are on one volume, otherwise by MoveByCopy.
bool MoveOneFile(TextView source, TextView destination);

// Copies under a temporary name beside the destination, checks the copy's size, gives it its name and
// deletes the source. When any of it fails, the source stands and no copy.
bool MoveByCopy(TextView source, TextView destination);

}  // namespace tavix::windows
