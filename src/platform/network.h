#pragma once

#include <optional>
#include <string>

#include "text/text.h"

namespace tavix::platform {

// The web.
class Network {
 public:
  virtual ~Network() = default;
  // Fetches an address, http or https. Follows redirections within its host. Returns at most
  // `timeoutSeconds` after the call; the limit covers looking up the name and the whole transfer. Returns
  // the whole content. Nothing when the time is over, the server can't be reached, redirects to another host,
  // answers with a status other than 200, or sends more than a megabyte.
  virtual std::optional<std::string> Fetch(TextView url, int timeoutSeconds) = 0;
};

// Never null. Without a host it is noNetwork (platform/nothing.h).
extern Network* network;
extern Network* const noNetwork;

}  // namespace tavix::platform
