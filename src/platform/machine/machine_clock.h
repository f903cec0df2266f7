#pragma once

#include "platform/clock.h"

namespace tavix::machine {

// A clock that stands still until it is set.
class StandingClock : public platform::Clock {
 public:
  explicit StandingClock(platform::DateTime now = 0) : now_(now) {}
  platform::DateTime Now() override { return now_; }
  void Set(platform::DateTime now) { now_ = now; }

 private:
  platform::DateTime now_;
};

// The host's clock in the time zone of the environment variable TZ, in UTC when that is unset.
class HostClock : public platform::Clock {
 public:
  platform::DateTime Now() override;
};

}  // namespace tavix::machine
