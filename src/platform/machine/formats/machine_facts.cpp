#include "platform/machine/formats/machine_facts.h"

#include <algorithm>

#include "text/ini_text.h"
#include "text/letter_case.h"
#include "text/text_file.h"

namespace tavix::machine {
namespace {

constexpr TextView kDrives = u"Drives";

// `<type>[,<label>[,not ready]]`
platform::Drive ReadDrive(char16_t letter, TextView value) {
  platform::Drive drive;
  drive.path = {letter, u':'};
  const std::vector<TextView> fields = Split(value, u",");
  const TextView type = fields.empty() ? TextView() : Trim(fields[0]);
  if (type.size() == 1 && type[0] >= u'0' && type[0] <= u'5') drive.type = type[0] - u'0';
  drive.ready = fields.size() < 3 || !EqualIgnoringCase(Trim(fields[2]), u"not ready");
  if (drive.ready && fields.size() > 1) drive.volumeName = Trim(fields[1]);
  return drive;
}

// The upper-case letter of a key in [Drives] ("c" or "C:"). 0 for any other key.
char16_t DriveLetter(TextView key) {
  if (key.size() != 1 && !(key.size() == 2 && key[1] == u':')) return 0;
  const char16_t letter = ToUpper(key[0]);
  return letter >= u'A' && letter <= u'Z' ? letter : u'\0';
}

}  // namespace

void MachineFacts::Set(TextView section, TextView key, TextView value) {
  ini_.Set(section, key, value);
  drives_ = ReadDrives(ini_);
  const auto root = store_ != nullptr ? store_->Root() : nullptr;
  if (root == nullptr) return;
  constexpr TextView kFile = u"machine.ini";
  const std::optional<std::string> content = root->ReadFile(kFile);
  if (!content) return;
  FileText file = DecodeTextFile(*content);
  file.text = WriteIniValue(file.text, section, key, value);
  root->WriteFile(kFile, EncodeTextFile(file));
}

std::vector<platform::Drive> MachineFacts::ReadDrives(const MachineIni& ini) {
  std::vector<platform::Drive> drives;
  for (const MachineIni::Entry& entry : ini.Entries(kDrives)) {
    const char16_t letter = DriveLetter(entry.first);
    if (letter == 0) continue;
    const bool isKnown = std::any_of(drives.begin(), drives.end(), [letter](const platform::Drive& drive) {
      return drive.path.front() == letter;
    });
    if (!isKnown) drives.push_back(ReadDrive(letter, entry.second));
  }
  std::sort(drives.begin(), drives.end(),
            [](const platform::Drive& left, const platform::Drive& right) { return left.path < right.path; });
  return drives;
}

const platform::Drive* MachineFacts::FindDrive(char16_t letter) const {
  const auto found = std::ranges::find_if(
      drives_, [letter](const platform::Drive& drive) { return drive.path.front() == letter; });
  return found == drives_.end() ? nullptr : &*found;
}

}  // namespace tavix::machine
