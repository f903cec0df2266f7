#pragma once

#include <optional>
#include <string>

#include "text/text.h"

namespace tavix::platform {

// What is on the web.
class Network {
 public:
  virtual ~Network() = default;
  // The bytes at an address of scheme http or https; redirections are followed within its host. Returns when
  // they are all there, and no later than `timeoutSeconds` after the call, looking up the name included and
  // however slowly they come. Nothing when the time is over, the server can't be reached, leads to another
  // host, answers with another status than 200, or sends more than a megabyte.
  virtual std::optional<std::string> Fetch(TextView url, int timeoutSeconds) = 0;
};

inline Network* network = nullptr;

}  // namespace tavix::platform
