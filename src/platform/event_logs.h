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
  // Opens a log by its name. 0 when that fails. The caller closes what was opened.
  virtual Handle Open(TextView log) = 0;
  // The number of records. Nothing when the log can't be read.
  virtual std::optional<uint32_t> Count(Handle log) = 0;
  // Deletes all records without saving a copy. False when that fails; it does for the handle 0.
  virtual bool Clear(Handle log) = 0;
  virtual void Close(Handle log) = 0;
};

// Never null. Without a host it is noEventLogs (platform/nothing.h).
extern EventLogs* eventLogs;
extern EventLogs* const noEventLogs;

}  // namespace tavix::platform
