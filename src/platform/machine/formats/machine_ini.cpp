#include "platform/machine/formats/machine_ini.h"

#include <algorithm>

namespace tavix::machine {
namespace {

TextView TrimSpace(TextView text) {
  constexpr TextView kSpace = u" \t\r";
  const size_t first = text.find_first_not_of(kSpace);
  if (first == TextView::npos) return {};
  return text.substr(first, text.find_last_not_of(kSpace) + 1 - first);
}

TextView Unquoted(TextView value) {
  const bool quoted = value.size() >= 2 && value.front() == u'"' && value.back() == u'"';
  return quoted ? value.substr(1, value.size() - 2) : value;
}

}  // namespace

std::optional<MachineIni> MachineIni::Read(std::string_view bytes, TextError& error) {
  const std::optional<Text> text = DecodeText(bytes, error);
  if (!text) return std::nullopt;
  MachineIni ini;
  std::vector<Entry>* section = nullptr;
  for (TextView rest = *text; !rest.empty();) {
    const size_t end = std::min(rest.find(u'\n'), rest.size());
    const TextView line = TrimSpace(rest.substr(0, end));
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (line.empty() || line.front() == u';' || line.front() == u'#') continue;
    if (line.front() == u'[') {
      const size_t close = line.find(u']');
      section =
          close == TextView::npos ? nullptr : &ini.sections_[Text(TrimSpace(line.substr(1, close - 1)))];
      continue;
    }
    const size_t equals = line.find(u'=');
    if (section == nullptr || equals == TextView::npos) continue;
    section->emplace_back(TrimSpace(line.substr(0, equals)), Unquoted(TrimSpace(line.substr(equals + 1))));
  }
  return ini;
}

std::optional<Text> MachineIni::Value(TextView section, TextView key) const {
  for (const Entry& entry : Entries(section)) {
    if (EqualIgnoringCase(entry.first, key)) return entry.second;
  }
  return std::nullopt;
}

const std::vector<MachineIni::Entry>& MachineIni::Entries(TextView section) const {
  static const std::vector<Entry> kNone;
  const auto found = sections_.find(section);
  return found == sections_.end() ? kNone : found->second;
}

void MachineIni::Set(TextView section, TextView key, TextView value) {
  std::vector<Entry>& entries = sections_[Text(section)];
  for (Entry& entry : entries) {
    if (!EqualIgnoringCase(entry.first, key)) continue;
    entry.second = value;
    return;
  }
  entries.emplace_back(key, value);
}

}  // namespace tavix::machine
