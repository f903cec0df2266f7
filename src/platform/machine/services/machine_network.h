#pragma once

#include <map>
#include <vector>

#include "platform/machine/services/journal.h"
#include "platform/network.h"

namespace tavix::machine {

// A network on which nobody answers but with what stands below. Every call is noted in the journal.
class MachineNetwork : public platform::Network {
 public:
  explicit MachineNetwork(Journal& journal) : journal_(journal) {}

  std::optional<std::string> Fetch(TextView url, int timeoutSeconds) override;

  std::map<Text, std::string> answers;  // by their addresses
  std::vector<int> timeouts;            // of the calls so far, in order

 private:
  Journal& journal_;
};

}  // namespace tavix::machine
