#include "platform/machine/machine_clock.h"

#include <chrono>
#include <cstdlib>
#include <ctime>

namespace tavix::machine {

platform::DateTime HostClock::Now() {
  using namespace std::chrono;
  const auto now = floor<milliseconds>(system_clock::now());
  if (std::getenv("TZ") == nullptr) return now.time_since_epoch().count();
  const std::time_t seconds = system_clock::to_time_t(now);
  // The C library's own buffer: everything runs on one thread.
  const std::tm* local = std::localtime(&seconds);
  if (local == nullptr) return now.time_since_epoch().count();
  const sys_days day = year(local->tm_year + 1900) / month(static_cast<unsigned>(local->tm_mon) + 1) / local->tm_mday;
  const auto time = day + hours(local->tm_hour) + minutes(local->tm_min) + std::chrono::seconds(local->tm_sec);
  return time_point_cast<milliseconds>(time).time_since_epoch().count() + now.time_since_epoch().count() % 1000;
}

}  // namespace tavix::machine
