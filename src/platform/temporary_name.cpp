#include "platform/temporary_name.h"

namespace tavix::platform {
namespace {

// Reads a positive number in the form that ToText writes.
std::optional<uint32_t> ReadNumber(TextView digits) {
  uint64_t number = 0;
  if (digits.empty() || digits.front() == u'0') return std::nullopt;
  for (const char16_t digit : digits) {
    if (digit < u'0' || digit > u'9') return std::nullopt;
    number = number * 10 + (digit - u'0');
    if (number > UINT32_MAX) return std::nullopt;
  }
  return static_cast<uint32_t>(number);
}

}  // namespace

Text TemporaryNames::Make(uint32_t process, uint32_t count) const {
  return Concat(start, ToText(process), u"-", ToText(count), end);
}

std::optional<uint32_t> TemporaryNames::ProcessOf(TextView name) const {
  if (name.size() < start.size() + end.size() || !name.starts_with(start) || !name.ends_with(end)) {
    return std::nullopt;
  }
  name = name.substr(start.size(), name.size() - start.size() - end.size());
  const size_t hyphen = name.find(u'-');
  if (hyphen == TextView::npos || !ReadNumber(name.substr(hyphen + 1))) return std::nullopt;
  return ReadNumber(name.substr(0, hyphen));
}

}  // namespace tavix::platform
