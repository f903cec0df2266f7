#pragma once

#include "platform/windows/windows_api.h"
#include "text/text.h"

namespace tavix::windows {

// Copies an open file to an unused path in the extended form (windows_path.h): content, times, and named
// streams where the target volume supports them. The copy is encrypted if the source is. True when the copy
// is complete and flushed to disk. On failure no copy is left.
bool CopyOpenFile(HANDLE source, const Text& path);

}  // namespace tavix::windows
