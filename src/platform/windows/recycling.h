#pragma once

#include "text/text.h"

namespace tavix::windows {

// Sends one file or folder to the recycle bin, and nothing with it. `path` is a normal path of an existing
// item, short enough for the shell (less than MAX_PATH characters). Uses COM: the thread needs a
// ComApartment.
//
// False when the item did not get into the bin; what the bin can't take stays. Most such items are known in
// advance from the settings (bin_settings.h). For the rest, the shell says before each deletion that it would
// be for good, and is refused. The shell may still ask the user, as for a folder that turns out to be too
// large. A Yes is refused too.
bool SendToBin(const Text& path);

}  // namespace tavix::windows
