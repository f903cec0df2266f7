#pragma once

#include "platform/byte_reader.h"
#include "text/text.h"

namespace tavix::platform {

// The paths in the location block of a shortcut. A missing one is empty.
struct LocationPaths {
  Text onVolume;
  Text onShare;
  bool named = true;  // false when the block has a share without a name
};
LocationPaths ShortcutLocation(const ByteReader& block);

}  // namespace tavix::platform
