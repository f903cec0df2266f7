#pragma once

#include <cstdint>

namespace tavix::platform {

// A date and time of the machine's local calendar, in milliseconds since 1970-01-01 00:00:00 of that
// calendar; differences are lengths of time apart from the shift of daylight saving.
using DateTime = int64_t;

class Clock {
 public:
  virtual ~Clock() = default;
  virtual DateTime Now() = 0;
};

inline Clock* clock = nullptr;

}  // namespace tavix::platform
