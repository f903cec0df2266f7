#pragma once

#include "platform/clock.h"

namespace tavix::windows {

// The local date and time of the system.
class WindowsClock : public platform::Clock {
 public:
  platform::DateTime Now() override;
};

// The date and time that a calendar entry of the system stands for, whatever its time zone; the start of
// 1970 when it is no date.
platform::DateTime ToDateTime(unsigned year, unsigned month, unsigned day, unsigned hour, unsigned minute,
                              unsigned second, unsigned millisecond);

}  // namespace tavix::windows
