#pragma once

#include "platform/network.h"
#include "platform/windows/windows_api.h"

#include <winhttp.h>

namespace tavix::windows {

// HTTP through WinHTTP, with the user's proxy and TLS 1.2 or later. Sends no passwords and keeps no cookies.
// While it waits, the thread's windows are painted; their other messages wait. A host under .invalid, which
// can't exist, isn't asked for.
class WindowsNetwork : public platform::Network {
 public:
  std::optional<std::string> Fetch(TextView url, int timeoutSeconds) override;
};

// Calls of the system. Tests replace them to have a clock of their own and to see the options.
struct NetworkCalls {
  decltype(&GetTickCount64) now = GetTickCount64;
  decltype(&WinHttpSetOption) setOption = WinHttpSetOption;
};
inline NetworkCalls networkCalls;

}  // namespace tavix::windows
