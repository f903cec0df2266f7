#pragma once

#include <cstdint>
#include <limits>

namespace tavix::platform {

// A date and time of the machine's local calendar, in milliseconds since 1970-01-01 00:00:00 of that
// calendar; differences are lengths of time apart from the shift of daylight saving.
using DateTime = int64_t;

// Stands for a time that isn't known, as that of access on disks that keep none. 0 is a time like any other.
constexpr DateTime kUnknownTime = std::numeric_limits<DateTime>::min();

class Clock {
 public:
  virtual ~Clock() = default;
  virtual DateTime Now() = 0;
};

inline Clock* clock = nullptr;

}  // namespace tavix::platform
