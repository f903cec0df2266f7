#pragma once

#include "text/text.h"

namespace tavix::windows {

// As platform::FileSystem::RemoveTemporaries; `folder` is a normal path (windows_path.h). A file goes only if
// its name tells a process that doesn't run, runs another program or is this one, and if nobody has it open.
// Links and folders stay. A folder on a network or optical drive is left alone.
void RemoveTemporaryFiles(TextView folder);

}  // namespace tavix::windows
