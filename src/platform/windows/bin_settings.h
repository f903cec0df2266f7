#pragma once

#include "text/text.h"

namespace tavix::windows {

// Whether the settings of the recycle bin let it take the file or folder at a normal path. False on a network
// share, when the bin is turned off for the user or the volume, and when the file is larger than the bin's
// limit. True when the settings can't be read: then the shell decides.
bool BinTakes(const Text& path);

}  // namespace tavix::windows
