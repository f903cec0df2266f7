#pragma once

#include "platform/clock.h"

namespace tavix::windows {

// The local date and time of the system.
class WindowsClock : public platform::Clock {
 public:
  platform::DateTime Now() override;
};

// Converts a date and time to DateTime, without regard to time zones. 0 (the start of 1970) for an invalid
// date.
platform::DateTime ToDateTime(unsigned year, unsigned month, unsigned day, unsigned hour, unsigned minute,
                              unsigned second, unsigned millisecond);

}  // namespace tavix::windows
