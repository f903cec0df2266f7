#include "platform/windows/windows_api.h"
#include "support/processor_time.h"

namespace tavix {

std::chrono::duration<double> ProcessorTime() {
  FILETIME created, ended, kernel, user;
  GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
  const auto seconds = [](const FILETIME& time) {
    return time.dwHighDateTime * 429.4967296 + time.dwLowDateTime * 1e-7;
  };
  return std::chrono::duration<double>(seconds(kernel) + seconds(user));
}

}  // namespace tavix
