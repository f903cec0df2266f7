#pragma once

#include "platform/network.h"

namespace tavix::windows {

// HTTP through WinHTTP, with the user's proxy and TLS 1.2 or later. Sends no passwords and keeps no cookies.
// While it waits, the thread's windows are painted; their other messages wait. A host under .invalid, which
// can't exist, isn't asked for.
class WindowsNetwork : public platform::Network {
 public:
  std::optional<std::string> Fetch(TextView url, int timeoutSeconds) override;
};

}  // namespace tavix::windows
