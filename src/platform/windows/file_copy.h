#pragma once

#include "platform/windows/windows_api.h"
#include "text/text.h"

namespace tavix::windows {

// Copies an open file to a path in the system's form (any length) at which nothing stands: content, named
// streams where the drive there can have them, and times; encrypted if the file is. True once the copy is
// whole on its disk; nothing is left of it otherwise.
bool CopyOpenFile(HANDLE source, const Text& path);

}  // namespace tavix::windows
