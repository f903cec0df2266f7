#pragma once

#include "text/text.h"

namespace tavix::windows {

// Whether the settings of the recycle bin let it take the file or folder at a normal path: false on a share,
// for a user and on a volume whose bin is turned off, and for a file larger than the bin may become. What the
// settings don't tell counts as taken and is left to the shell.
bool BinTakes(const Text& path);

}  // namespace tavix::windows
