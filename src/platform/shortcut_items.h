#pragma once

#include "platform/byte_reader.h"
#include "text/text.h"

namespace tavix::platform {

// The path that an item list of the shell stands for: a drive, or a share of the network, and what lies below
// it. Empty where any of the items is something else: an object of the shell, or a file of a folder that
// only the shell can place, such as a user's desktop.
Text ShortcutItemPath(const ByteReader& items);

}  // namespace tavix::platform
