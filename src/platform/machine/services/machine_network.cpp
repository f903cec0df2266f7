#include "platform/machine/services/machine_network.h"

namespace tavix::machine {

std::optional<std::string> MachineNetwork::Fetch(TextView url, int timeoutSeconds) {
  journal_.Note(u"Fetch", {{u"url", Text(url)}});
  timeouts.push_back(timeoutSeconds);
  const auto answer = answers.find(Text(url));
  return answer == answers.end() ? std::nullopt : std::optional(answer->second);
}

}  // namespace tavix::machine
