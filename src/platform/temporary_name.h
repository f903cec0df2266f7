#pragma once

#include <cstdint>
#include <optional>

#include "text/text.h"

namespace tavix::platform {

// Names of temporary files: a start, the id of the process, a hyphen, a count from 1, an end. Both numbers
// are decimal without leading zeros.
struct TemporaryNames {
  TextView start;
  TextView end;

  Text Make(uint32_t process, uint32_t count) const;
  // The id of the process that made a name. Nothing when the name doesn't have exactly this form.
  std::optional<uint32_t> ProcessOf(TextView name) const;
};

// For files on Windows.
inline constexpr TemporaryNames kTemporaryFiles{u"~tvx", u".tmp"};

}  // namespace tavix::platform
