#pragma once

#include "platform/clock.h"

namespace tavix::machine {

// A moment of the host, in milliseconds since 1970 UTC, in the time zone of the environment variable TZ, in
// UTC when that is unset.
platform::DateTime ToLocalTime(int64_t milliseconds);
// The same for many moments in a row, with the answer of HasZone asked for once.
platform::DateTime ToLocalTime(int64_t milliseconds, bool hasZone);
// Whether TZ is set.
bool HasZone();

// A clock that stands still until it is set.
class StandingClock : public platform::Clock {
 public:
  explicit StandingClock(platform::DateTime now = 0) : now_(now) {}
  platform::DateTime Now() override { return now_; }
  void Set(platform::DateTime now) { now_ = now; }

 private:
  platform::DateTime now_;
};

// The host's clock, as local as ToLocalTime.
class HostClock : public platform::Clock {
 public:
  platform::DateTime Now() override;
};

}  // namespace tavix::machine
