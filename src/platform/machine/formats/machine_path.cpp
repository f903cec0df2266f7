#include "platform/machine/formats/machine_path.h"

#include <algorithm>
#include <array>

#include "text/letter_case.h"

namespace tavix::machine {
namespace {

constexpr size_t kLongestName = 255;

constexpr std::array<bool, 128> kForbidden = [] {
  std::array<bool, 128> forbidden{};
  for (size_t c = 0; c < u' '; ++c) forbidden[c] = true;
  for (const char16_t c : TextView(u"<>:\"|?*/\\")) forbidden[c] = true;
  return forbidden;
}();

// Removes the root from the start of the path and sets `drive` (0 for the application folder). False when the
// path has no known root.
bool TakeRoot(TextView& path, char16_t& drive) {
  const TextView start = path.substr(0, kApplicationFolder.size());
  if (EqualIgnoringCase(start, kApplicationFolder)) {
    path.remove_prefix(start.size());
    drive = 0;
    return path.empty() || path.front() == u'\\';
  }
  if (path.size() < 2 || path[1] != u':') return false;
  drive = path[0] < 0x80 ? ToUpper(path[0]) : u'\0';
  path.remove_prefix(2);
  return drive >= u'A' && drive <= u'Z' && (path.empty() || path.front() == u'\\');
}

}  // namespace

bool IsFileName(TextView name) {
  if (name.empty() || name.size() > kLongestName) return false;
  if (name.back() == u' ' || name.back() == u'.') return false;
  return std::none_of(name.begin(), name.end(),
                      [](char16_t c) { return c < kForbidden.size() && kForbidden[c]; });
}

std::optional<MachinePath> ReadMachinePath(TextView path) {
  Text unified(path);
  std::replace(unified.begin(), unified.end(), u'/', u'\\');
  TextView rest = unified;
  MachinePath read;
  if (!TakeRoot(rest, read.drive)) return std::nullopt;
  while (!rest.empty()) {
    const size_t end = std::min(rest.find(u'\\'), rest.size());
    TextView name = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (name == u"..") {
      if (!read.names.empty()) read.names.pop_back();
      continue;
    }
    name = name.substr(0, name.find_last_not_of(u" .") + 1);
    if (name.empty()) continue;
    if (!IsFileName(name)) return std::nullopt;
    read.names.emplace_back(name);
  }
  return read;
}

bool LeadsToAnotherComputer(TextView path) {
  Text unified(path);
  std::replace(unified.begin(), unified.end(), u'/', u'\\');
  if (!unified.starts_with(u"\\\\") ||
      EqualIgnoringCase(TextView(unified).substr(0, kApplicationFolder.size()), kApplicationFolder)) {
    return false;
  }
  size_t names = 0;
  for (const TextView part : Split(unified, u"\\")) {
    const TextView name = part.substr(0, part.find_last_not_of(u" .") + 1);
    if (part.empty() || (name.empty() && names >= 2)) continue;
    if (!IsFileName(name)) return false;
    ++names;
  }
  return names >= 2;
}

Text MachinePathText(char16_t drive, const std::vector<Text>& names) {
  Text path = drive == 0 ? Text(kApplicationFolder) : Text{drive, u':'};
  if (drive != 0 && names.empty()) path.push_back(u'\\');
  for (const Text& name : names) path.append(u"\\").append(name);
  return path;
}

Text MachinePath::ToText() const { return MachinePathText(drive, names); }

}  // namespace tavix::machine
