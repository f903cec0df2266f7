#pragma once

#include "platform/event_logs.h"

namespace tavix::windows {

// The event logs of the running system. Of a log that it doesn't know, the system opens another one
// instead; here only the three names of the interface can be opened.
class WindowsEventLogs : public platform::EventLogs {
 public:
  Handle Open(TextView log) override;
  std::optional<uint32_t> Count(Handle log) override;
  bool Clear(Handle log) override;
  void Close(Handle log) override;
};

}  // namespace tavix::windows
