#pragma once

#include "text/text.h"

namespace tavix::windows {

// Sends one file or folder to the recycle bin, and nothing with it. `path` is a normal path of an existing
// item, short enough for the shell (less than MAX_PATH characters). Uses COM: the thread needs a
// ComApartment.
//
// False when the item did not get into the bin; what the bin can't take stays. The settings (bin_settings.h)
// show most such items in advance. For the rest, the shell announces each permanent deletion before it
// happens, and we refuse it. The shell may still ask the user, for example about a folder that turns out to
// be too large. Even after a Yes the deletion is refused.
bool SendToBin(const Text& path);

}  // namespace tavix::windows
