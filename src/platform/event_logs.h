#pragma once

#include <cstdint>
#include <optional>

#include "text/text.h"

namespace tavix::platform {

// The system's event logs: "System", "Application", "Security".
class EventLogs {
 public:
  using Handle = intptr_t;

  virtual ~EventLogs() = default;
  // 0 when the log can't be opened. What is opened is closed.
  virtual Handle Open(TextView log) = 0;
  // The number of records.
  virtual std::optional<uint32_t> Count(Handle log) = 0;
  // Clears without saving a copy. False for a log that can't be cleared, the handle 0 among them.
  virtual bool Clear(Handle log) = 0;
  virtual void Close(Handle log) = 0;
};

inline EventLogs* eventLogs = nullptr;

}  // namespace tavix::platform
