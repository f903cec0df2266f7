#pragma once

#include "platform/event_logs.h"

namespace tavix::windows {

// The event logs of the running system. For an unknown name the system would open the Application log, so
// Open accepts only the three names of the interface.
class WindowsEventLogs : public platform::EventLogs {
 public:
  Handle Open(TextView log) override;
  std::optional<uint32_t> Count(Handle log) override;
  bool Clear(Handle log) override;
  void Close(Handle log) override;
};

}  // namespace tavix::windows
