#pragma once

#include <cstdint>
#include <optional>

#include "text/text.h"

namespace tavix::platform {

// Names of files that a process makes for a moment's use: a start, the number of the process, a hyphen, a
// count from 1 on, an end. Both numbers are decimal without zeros in front.
struct TemporaryNames {
  TextView start;
  TextView end;

  Text Make(uint32_t process, uint32_t count) const;
  // The number of the process that made a name. Nothing where the name hasn't this very form.
  std::optional<uint32_t> ProcessOf(TextView name) const;
};

// What a file of Windows can be called.
inline constexpr TemporaryNames kTemporaryFiles{u"~tvx", u".tmp"};

}  // namespace tavix::platform
