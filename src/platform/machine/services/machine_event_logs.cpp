#include "platform/machine/services/machine_event_logs.h"

#include <algorithm>

namespace tavix::machine {
namespace {

constexpr TextView kSection = u"Event Logs";

// Reads decimal digits. Nothing for any other character or more than 32 bits.
std::optional<uint32_t> ReadCount(TextView text) {
  uint64_t count = 0;
  for (const char16_t c : text) {
    if (c < u'0' || c > u'9') return std::nullopt;
    count = count * 10 + (c - u'0');
    if (count > UINT32_MAX) return std::nullopt;
  }
  return text.empty() ? std::nullopt : std::optional(static_cast<uint32_t>(count));
}

}  // namespace

platform::EventLogs::Handle MachineEventLogs::Open(TextView log) {
  refused_ = facts_.Value(kSection, log).and_then(ReadCount) ? std::nullopt : std::optional(Text(log));
  if (refused_) return 0;
  open_.emplace(++last_, log);
  return last_;
}

std::optional<uint32_t> MachineEventLogs::Count(Handle log) {
  const auto found = open_.find(log);
  if (found == open_.end()) return std::nullopt;
  return facts_.Value(kSection, found->second).and_then(ReadCount);
}

bool MachineEventLogs::Clear(Handle log) {
  const auto found = open_.find(log);
  if (found == open_.end()) {
    // Record the call for the log that couldn't be opened, too.
    if (log == 0 && refused_) journal_.Note(u"ClearEventLog", {{u"log", *refused_}});
    return false;
  }
  journal_.Note(u"ClearEventLog", {{u"log", found->second}});
  if (locked.contains(found->second)) return false;
  facts_.Set(kSection, found->second, u"0");
  return true;
}

void MachineEventLogs::Close(Handle log) { open_.erase(log); }

}  // namespace tavix::machine
