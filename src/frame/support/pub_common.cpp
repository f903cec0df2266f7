#include "frame/support/pub_common.h"

#include <algorithm>
#include <map>

#include "frame/support/ini_text.h"
#include "frame/support/text_file.h"
#include "text/attempt.h"
#include "text/letter_case.h"

namespace tavix {
namespace {

bool IsSeparator(char16_t c) { return c == u'\\' || c == u'/'; }

// Two percent signs: the name of a variable that isn't set may stand between them.
bool MayHoldVariable(TextView path) { return std::count(path.begin(), path.end(), u'%') >= 2; }

bool BeginsWithDrive(TextView path) {
  const char16_t letter = path.empty() ? u'\0' : ToUpper(path[0]);
  return path.size() >= 3 && letter >= u'A' && letter <= u'Z' && path[1] == u':' && IsSeparator(path[2]);
}

}  // namespace

void clsPubCommon::LoadTexts(const std::vector<NamedText>& texts, TextView section, TextView file) const {
  const std::optional<std::string> bytes = files_ != nullptr ? files_->ReadFile(file) : std::nullopt;
  if (!bytes) return;
  std::map<Text, Text, LessIgnoringCase> found;
  VisitIniSection(DecodeTextFile(*bytes).text, section,
                  [&found](TextView key, TextView value) { found.emplace(key, value); });
  for (const NamedText& text : texts) {
    const auto entry = found.find(text.Name);
    if (entry != found.end() && !entry->second.empty()) text.Set(entry->second);
  }
}

void clsPubCommon::LoadFormMenus(Form& form, TextView file) const {
  LoadTexts(form.Menus(), form.Name(), file);
}

void clsPubCommon::LoadFormTexts(Form& form, TextView file) const {
  LoadTexts(form.Texts(), form.Name(), file);
}

void clsPubCommon::InArray(const Variant& value, std::initializer_list<Variant> array, bool& found) const {
  found = std::find(array.begin(), array.end(), value) != array.end();
}

void clsPubCommon::CountFolderFiles(TextView folder, int& count) const {
  if (files_ == nullptr) return;
  int files = 0;
  const bool listed = files_->List(folder, [&files](const platform::DirectoryEntry& entry) {
    if (!entry.folder) ++files;
  });
  if (listed) count = files;
}

void clsPubCommon::IsShortcutValid(TextView path, bool& valid) const {
  if (files_ == nullptr || shell_ == nullptr) return;
  const Text target = shell_->ExpandEnvironment(shell_->ShortcutTarget(path).value_or(Text()));
  valid = !IsKnownToBeMissing(target);
}

bool clsPubCommon::IsKnownToBeMissing(TextView path) const {
  if (!BeginsWithDrive(path) || !IsOnReadyFixedDrive(path) || files_->Look(path)) return false;
  return !MayHoldVariable(path) && files_->FileExists(path) == false && files_->FolderExists(path) == false;
}

bool clsPubCommon::IsOnReadyFixedDrive(TextView path) const {
  constexpr int kFixed = 2;
  const std::vector<platform::Drive> drives = files_->Drives();
  return std::any_of(drives.begin(), drives.end(), [path](const platform::Drive& drive) {
    return drive.type == kFixed && drive.ready && EqualIgnoringCase(drive.path, path.substr(0, 2));
  });
}

void clsPubCommon::GetSystemTempFolder(Text& path) const {
  if (shell_ != nullptr) Set(path, shell_->SystemTempFolder());
}

}  // namespace tavix
