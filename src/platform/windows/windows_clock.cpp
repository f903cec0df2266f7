#include "platform/windows/windows_clock.h"

#include "platform/windows/windows_api.h"

namespace tavix::windows {
namespace {

// FILETIME counts 100 ns ticks since 1601.
constexpr int64_t kTicksPerMillisecond = 10'000;
constexpr int64_t kTicksTo1970 = 116'444'736'000'000'000;

}  // namespace

platform::DateTime WindowsClock::Now() {
  SYSTEMTIME local;
  GetLocalTime(&local);
  return ToDateTime(local.wYear, local.wMonth, local.wDay, local.wHour, local.wMinute, local.wSecond,
                    local.wMilliseconds);
}

platform::DateTime ToDateTime(unsigned year, unsigned month, unsigned day, unsigned hour, unsigned minute,
                              unsigned second, unsigned millisecond) {
  const auto word = [](unsigned number) { return static_cast<WORD>(number); };
  const SYSTEMTIME entry = {word(year),   word(month),      0, word(day), word(hour), word(minute),
                            word(second), word(millisecond)};
  FILETIME time;
  if (!SystemTimeToFileTime(&entry, &time)) return 0;
  const int64_t ticks = static_cast<int64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
  return (ticks - kTicksTo1970) / kTicksPerMillisecond;
}

}  // namespace tavix::windows
