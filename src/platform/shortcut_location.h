#pragma once

#include "platform/byte_reader.h"
#include "text/text.h"

namespace tavix::platform {

// The paths that the location block of a shortcut tells; empty what it doesn't.
struct LocationPaths {
  Text onVolume;
  Text onShare;
  bool named = true;  // false when it says that there is a share and doesn't name it
};
LocationPaths ShortcutLocation(const ByteReader& block);

}  // namespace tavix::platform
