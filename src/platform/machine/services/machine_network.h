#pragma once

#include <map>
#include <vector>

#include "platform/machine/services/journal.h"
#include "platform/network.h"

namespace tavix::machine {

// A network that answers only with the contents below. Every call is recorded in the journal.
class MachineNetwork : public platform::Network {
 public:
  explicit MachineNetwork(Journal& journal) : journal_(journal) {}

  std::optional<std::string> Fetch(TextView url, int timeoutSeconds) override;

  std::map<Text, std::string> answers;  // by address
  std::vector<int> timeouts;            // seconds, of the calls so far, in order

 private:
  Journal& journal_;
};

}  // namespace tavix::machine
