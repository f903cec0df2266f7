#pragma once

#include "platform/windows/windows_api.h"
#include "text/text.h"

#include <shellapi.h>

namespace tavix::windows {

// How the shell moves an item to the bin. FOF_NO_CONNECTED_ELEMENTS: without it, "page_files" goes along with
// "page.htm". FOF_WANTNUKEWARNING: without it, FOF_NOCONFIRMATION answers Yes when the shell asks whether to
// delete for good what doesn't fit into the bin.
constexpr FILEOP_FLAGS kRecycleFlags = FOF_ALLOWUNDO | FOF_NO_CONNECTED_ELEMENTS | FOF_NOCONFIRMATION |
                                       FOF_SILENT | FOF_NOERRORUI | FOF_WANTNUKEWARNING;

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
