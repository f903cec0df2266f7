#include "platform/machine/host/machine_clock.h"

#include <chrono>
#include <cstdlib>
#include <ctime>
#include <mutex>

namespace tavix::machine {

using namespace std::chrono;

bool HasZone() { return std::getenv("TZ") != nullptr; }

platform::DateTime ToLocalTime(int64_t milliseconds) { return ToLocalTime(milliseconds, HasZone()); }

platform::DateTime ToLocalTime(int64_t milliseconds, bool hasZone) {
  if (!hasZone) return milliseconds;
  const auto whole = floor<seconds>(std::chrono::milliseconds(milliseconds));
  const auto moment = static_cast<std::time_t>(whole.count());
  std::tm local = {};
  {
    // localtime may use one buffer for all threads.
    static std::mutex buffer;
    const std::lock_guard lock(buffer);
    const std::tm* found = std::localtime(&moment);
    if (found == nullptr) return milliseconds;
    local = *found;
  }
  const sys_days day =
      year(local.tm_year + 1900) / month(static_cast<unsigned>(local.tm_mon) + 1) / local.tm_mday;
  const sys_seconds time = day + hours(local.tm_hour) + minutes(local.tm_min) + seconds(local.tm_sec);
  return time.time_since_epoch().count() * 1000 + (milliseconds - whole.count() * 1000);
}

platform::DateTime HostClock::Now() {
  return ToLocalTime(floor<milliseconds>(system_clock::now()).time_since_epoch().count());
}

}  // namespace tavix::machine
