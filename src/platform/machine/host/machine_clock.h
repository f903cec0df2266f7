#pragma once

#include "platform/clock.h"

namespace tavix::machine {

// Converts a host time, in milliseconds since 1970 UTC, to local time in the zone of the environment variable
// TZ; UTC when that is unset.
platform::DateTime ToLocalTime(int64_t milliseconds);
// The same with the answer of HasZone, for many conversions in a row.
platform::DateTime ToLocalTime(int64_t milliseconds, bool hasZone);
// Whether TZ is set.
bool HasZone();

// A clock that shows one time until it is set.
class StandingClock : public platform::Clock {
 public:
  explicit StandingClock(platform::DateTime now = 0) : now_(now) {}
  platform::DateTime Now() override { return now_; }
  void Set(platform::DateTime now) { now_ = now; }

 private:
  platform::DateTime now_;
};

// The host's clock, as local time by ToLocalTime.
class HostClock : public platform::Clock {
 public:
  platform::DateTime Now() override;
};

}  // namespace tavix::machine
