#include "platform/windows/windows_event_logs.h"

#include <algorithm>

#include "platform/windows/wide.h"
#include "platform/windows/windows_api.h"
#include "text/letter_case.h"

namespace tavix::windows {
namespace {

HANDLE Native(platform::EventLogs::Handle log) { return reinterpret_cast<HANDLE>(log); }

}  // namespace

platform::EventLogs::Handle WindowsEventLogs::Open(TextView log) {
  constexpr TextView kLogs[] = {u"System", u"Application", u"Security"};
  const auto* known = std::find_if(std::begin(kLogs), std::end(kLogs),
                                   [log](TextView name) { return EqualIgnoringCase(log, name); });
  if (known == std::end(kLogs)) return 0;
  return reinterpret_cast<Handle>(OpenEventLogW(nullptr, Wide(Text(*known))));
}

std::optional<uint32_t> WindowsEventLogs::Count(Handle log) {
  DWORD count = 0;
  if (log == 0 || !GetNumberOfEventLogRecords(Native(log), &count)) return std::nullopt;
  return count;
}

bool WindowsEventLogs::Clear(Handle log) { return log != 0 && ClearEventLogW(Native(log), nullptr) != 0; }

void WindowsEventLogs::Close(Handle log) {
  if (log != 0) CloseEventLog(Native(log));
}

}  // namespace tavix::windows
