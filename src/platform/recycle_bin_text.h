#pragma once

#include <cstdint>

#include "text/text.h"

namespace tavix::platform {

// The answer of Shell::RecycleBinInfo. Its readers parse the size as a signed 32-bit number, so a larger size
// is written as "over".
inline Text RecycleBinText(uint64_t items, uint64_t bytes) {
  return Concat(ToText(static_cast<long long>(items)), u"|",
                bytes > INT32_MAX ? Text(u"over") : ToText(static_cast<long long>(bytes)));
}

}  // namespace tavix::platform
