#pragma once

#include "text/text.h"

namespace tavix::windows {

// As platform::FileSystem::RemoveTemporaries; `folder` is a normal path (windows_path.h). A file is deleted
// only if nobody has it open and the process whose id is in its name has ended, runs another program, or is
// this one. Links and folders stay. Does nothing for a folder on a network or optical drive.
void RemoveTemporaryFiles(TextView folder);

}  // namespace tavix::windows
