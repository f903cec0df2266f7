#pragma once

#include "text/text.h"

namespace tavix::windows {

// Sends one file or folder to the recycle bin, and nothing along with it. `path` is a normal one that is
// there and that the shell takes (fewer than MAX_PATH characters). Objects of the system are used: the thread
// has a ComApartment.
//
// False when it did not come into the bin; what the bin can't take stays. The settings tell most of that
// beforehand (bin_settings.h), the shell tells the rest before each thing that it is about to delete for
// good, and is refused. Where the shell would ask the user whether it may (a folder that turns out to be too
// large), it does ask; a Yes is refused as well.
bool SendToBin(const Text& path);

}  // namespace tavix::windows
