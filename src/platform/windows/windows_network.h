#pragma once

#include "platform/network.h"

namespace tavix::windows {

// The web by way of the system, through the proxy that the user has set, and by TLS 1.2 or later. Nobody's
// password is sent and no cookie is kept. Windows of the calling thread are painted meanwhile; their other
// messages wait. A name under .invalid, which no server has, is not asked for.
class WindowsNetwork : public platform::Network {
 public:
  std::optional<std::string> Fetch(TextView url, int timeoutSeconds) override;
};

}  // namespace tavix::windows
