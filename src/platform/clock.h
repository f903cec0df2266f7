#pragma once

#include <cstdint>
#include <limits>

namespace tavix::platform {

// A local date and time of the machine, in milliseconds since 1970-01-01 00:00:00 local time. Differences are
// lengths of time, except across a change to or from daylight saving.
using DateTime = int64_t;

// An unknown time, such as the time of access on a disk that keeps none. 0 is an ordinary time.
constexpr DateTime kUnknownTime = std::numeric_limits<DateTime>::min();

class Clock {
 public:
  virtual ~Clock() = default;
  virtual DateTime Now() = 0;
};

// Never null. Without a host it is noClock (platform/nothing.h).
extern Clock* clock;
extern Clock* const noClock;

}  // namespace tavix::platform
