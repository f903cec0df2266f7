#pragma once

#include <optional>

#include "platform/clock.h"

namespace tavix::mdlPubSelf {

// The number of a time's calendar day.
inline int64_t CalendarDay(platform::DateTime time) {
  constexpr int64_t kDay = int64_t{24} * 60 * 60 * 1000;
  return time / kDay - (time % kDay < 0 ? 1 : 0);
}

// The number of today's calendar day. Nothing if the date is unknown.
inline std::optional<int64_t> Today() {
  const platform::DateTime now = platform::clock->Now();
  return now == platform::kUnknownTime ? std::nullopt : std::optional(CalendarDay(now));
}

// The number of midnights from a time to now; negative for a later day. Nothing if the date of today is
// unknown.
inline std::optional<int64_t> CalendarDaysSince(platform::DateTime time) {
  return Today().transform([time](int64_t today) { return today - CalendarDay(time); });
}

}  // namespace tavix::mdlPubSelf
