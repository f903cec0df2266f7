#pragma once

#include <optional>

#include "platform/clock.h"

namespace tavix::mdlPubSelf {

// The number of the calendar day that a time lies in.
inline int64_t CalendarDay(platform::DateTime time) {
  constexpr int64_t kDay = int64_t{24} * 60 * 60 * 1000;
  return time / kDay - (time % kDay < 0 ? 1 : 0);
}

// Midnights between a time and now, below zero for a later day. Nothing where it isn't known what day it is.
inline std::optional<int64_t> CalendarDaysSince(platform::DateTime time) {
  const platform::DateTime now = platform::clock->Now();
  if (now == platform::kUnknownTime) return std::nullopt;
  return CalendarDay(now) - CalendarDay(time);
}

}  // namespace tavix::mdlPubSelf
