#pragma once

#include <map>
#include <optional>
#include <set>

#include "platform/event_logs.h"
#include "platform/machine/formats/machine_facts.h"
#include "platform/machine/services/journal.h"

namespace tavix::machine {

// The event logs of the section [Event Logs] in machine.ini: each key is a log, its value the number of
// records. Clear is recorded in the journal and sets the number to 0. It is also recorded for a log that
// could not be opened.
class MachineEventLogs : public platform::EventLogs {
 public:
  MachineEventLogs(MachineFacts& facts, Journal& journal) : facts_(facts), journal_(journal) {}

  Handle Open(TextView log) override;
  std::optional<uint32_t> Count(Handle log) override;
  bool Clear(Handle log) override;
  void Close(Handle log) override;

  // The number of open logs.
  size_t OpenLogs() const { return open_.size(); }
  // Logs that can be opened and counted but not cleared.
  std::set<Text, LessIgnoringCase> locked;

 private:
  MachineFacts& facts_;
  Journal& journal_;
  std::map<Handle, Text> open_;
  std::optional<Text> refused_;  // the log of the last Open, if that failed
  Handle last_ = 0;
};

}  // namespace tavix::machine
