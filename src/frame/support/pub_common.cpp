#include "frame/support/pub_common.h"

#include <algorithm>
#include <map>

#include "text/attempt.h"
#include "text/ini_text.h"
#include "text/letter_case.h"
#include "text/text_file.h"

namespace tavix {
namespace {

bool IsSeparator(char16_t c) { return c == u'\\' || c == u'/'; }

// Two percent signs may still enclose the name of a variable that isn't set.
bool MayHoldVariable(TextView path) { return std::count(path.begin(), path.end(), u'%') >= 2; }

// Whether a text is an absolute path on a drive ("C:\..."), without characters that no path can have.
bool IsPathOnDrive(TextView path) {
  constexpr TextView kRefused = u"<>:\"|?*";
  const char16_t letter = path.empty() ? u'\0' : ToUpper(path[0]);
  if (path.size() < 3 || letter < u'A' || letter > u'Z' || path[1] != u':' || !IsSeparator(path[2])) {
    return false;
  }
  return std::ranges::all_of(
      path.substr(2), [kRefused](char16_t c) { return c >= u' ' && kRefused.find(c) == TextView::npos; });
}

}  // namespace

void clsPubCommon::LoadTexts(const std::vector<NamedText>& texts, TextView section, TextView file) const {
  const std::optional<std::string> bytes = files_->ReadFile(file);
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
  int files = 0;
  const bool listed = files_->List(folder, [&files](const platform::DirectoryEntry& entry) {
    if (!entry.folder) ++files;
  });
  if (listed) count = files;
}

void clsPubCommon::IsShortcutValid(TextView path, bool& valid) {
  if (files_ == platform::noFileSystem || shell_ == platform::noShell) return;
  const auto shortcut = shell_->OpenShortcut(path);
  valid = !shortcut || shortcut->others || shortcut->paths.empty() ||
          !std::ranges::all_of(shortcut->paths, [this](const Text& place) {
            return IsKnownToBeMissing(shell_->ExpandEnvironment(place));
          });
}

// Only fixed drives are accessed; others could take long to answer.
bool clsPubCommon::IsKnownToBeMissing(TextView path) {
  if (!IsPathOnDrive(path) || MayHoldVariable(path)) return false;
  const char16_t letter = ToUpper(path[0]);
  Drive& drive = DriveOf(letter);
  // A link counts as existing, whatever its target.
  if (!drive.fixed || files_->Look(path)) return false;
  if (files_->FileExists(path) != false || files_->FolderExists(path) != false) return false;
  if (!drive.ready) drive.ready = files_->IsDriveReady(letter);
  return *drive.ready;
}

clsPubCommon::Drive& clsPubCommon::DriveOf(char16_t letter) {
  const auto [known, isNew] = drives_.try_emplace(letter);
  if (isNew) known->second.fixed = files_->DriveType(letter) == platform::kFixedDrive;
  return known->second;
}

void clsPubCommon::GetSystemTempFolder(Text& path) const { Set(path, shell_->SystemTempFolder()); }

}  // namespace tavix
