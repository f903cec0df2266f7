#pragma once

#include "platform/byte_reader.h"
#include "text/text.h"

namespace tavix::platform {

// The path of a shell item list: a drive or a network share, and the names below it. Empty when an item is
// anything else: an object of the shell, or a file in a folder that only the shell can place, such as a
// user's desktop.
Text ShortcutItemPath(const ByteReader& items);

}  // namespace tavix::platform
