#pragma once

#include <cstdint>

#include "text/text.h"

namespace tavix::platform {

// What Shell::RecycleBinInfo answers. Readers take the bytes for a number of 32 bits with a sign; where they
// are more, a word stands in their place.
inline Text RecycleBinText(uint64_t items, uint64_t bytes) {
  return Concat(ToText(static_cast<long long>(items)), u"|",
                bytes > INT32_MAX ? Text(u"over") : ToText(static_cast<long long>(bytes)));
}

}  // namespace tavix::platform
