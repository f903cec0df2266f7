#include "platform/machine/services/machine_shell.h"

#include <set>

#include "platform/machine/formats/machine_facts.h"
#include "platform/machine/services/journal.h"
#include "platform/machine/services/machine_file_system.h"
#include "platform/recycle_bin_text.h"
#include "text/letter_case.h"
#include "text/utf8.h"

namespace tavix::machine {
namespace {

// Drops a backslash at the end, except a drive root's.
Text WithoutBackslash(Text folder) {
  constexpr size_t kDriveRootLength = 3;
  if (folder.size() > kDriveRootLength && folder.back() == u'\\') folder.pop_back();
  return folder;
}

}  // namespace

bool MachineShell::Exists(TextView path) {
  return files_.FileExists(path) == true || files_.FolderExists(path) == true;
}

bool MachineShell::RunTarget(TextView target, int style) {
  journal_.Note(u"RunTarget", {{u"target", Text(target)}, {u"style", style}});
  return !Refuses(u"RunTarget", target) && !Trim(target).empty();
}

bool MachineShell::OpenPath(TextView path, int style) {
  journal_.Note(u"OpenPath", {{u"path", Text(path)}, {u"style", style}});
  return !Refuses(u"OpenPath", path) && Exists(path);
}

bool MachineShell::RunHidden(TextView target) {
  journal_.Note(u"RunHidden", {{u"target", Text(target)}});
  return !Refuses(u"RunHidden", target) && !Trim(target).empty();
}

bool MachineShell::ShowFileProperties(platform::WindowHandle, TextView path) {
  journal_.Note(u"ShowFileProperties", {{u"path", Text(path)}});
  return !Refuses(u"ShowFileProperties", path) && Exists(path);
}

bool MachineShell::DeleteToRecycleBin(TextView path) {
  journal_.Note(u"DeleteToRecycleBin", {{u"path", Text(path)}});
  return !Refuses(u"DeleteToRecycleBin", path) && files_.Recycle(path, bin_);
}

// If machine.ini fixes the answer of RecycleBinInfo, sets it to that of an empty bin.
bool MachineShell::EmptyRecycleBin(platform::WindowHandle) {
  journal_.Note(u"EmptyRecycleBin");
  if (Refuses(u"EmptyRecycleBin", {}) || !bin_.Empty()) return false;
  const std::optional<Text> info = facts_.Value(u"Recycle Bin", u"Info");
  if (info && *info != u"-") facts_.Set(u"Recycle Bin", u"Info", u"0|0");
  return true;
}

std::optional<Text> MachineShell::RecycleBinInfo() {
  if (Refuses(u"RecycleBinInfo", {})) return std::nullopt;
  std::optional<Text> info = facts_.Value(u"Recycle Bin", u"Info");
  if (info) return *info == u"-" ? std::nullopt : std::move(info);
  return bin_.Count().transform([](const RecycleBin::Content& content) {
    return platform::RecycleBinText(content.items, content.bytes);
  });
}

bool MachineShell::DeleteAtRestart(TextView path) {
  journal_.Note(u"DeleteAtRestart", {{u"path", Text(path)}});
  if (Refuses(u"DeleteAtRestart", path) || !ReadMachinePath(path)) return false;
  const auto root = store_.Root();
  return root != nullptr && root->Append(u"restart.txt", ToUtf8(path) + "\n");
}

std::optional<Text> MachineShell::Folder(TextView section, TextView key) const {
  return facts_.Value(section, key).transform(WithoutBackslash);
}

std::optional<Text> MachineShell::SpecialFolderByNumber(int number) {
  const Text key = ToText(number);
  return Refuses(u"SpecialFolderByNumber", key) ? std::nullopt : Folder(u"Folders", key);
}

std::optional<Text> MachineShell::SpecialFolderByName(TextView name) {
  return Refuses(u"SpecialFolderByName", name) ? std::nullopt : Folder(u"Special Folders", name);
}

std::optional<Text> MachineShell::UserTempFolder() {
  return Refuses(u"UserTempFolder", {}) ? std::nullopt : Folder(u"Temporary Folders", u"User");
}

std::optional<Text> MachineShell::SystemTempFolder() {
  return Refuses(u"SystemTempFolder", {}) ? std::nullopt : Folder(u"Temporary Folders", u"System");
}

std::optional<std::vector<Text>> MachineShell::NamedFolders() {
  if (Refuses(u"NamedFolders", {})) return std::nullopt;
  std::set<Text, LessIgnoringCase> folders;
  const auto add = [&folders](const Text& folder) {
    if (!folder.empty()) folders.insert(WithoutBackslash(folder));
  };
  if (const auto windows = facts_.Value(u"Environment", u"WinDir")) add(*windows);
  for (const TextView section : {u"Folders", u"Special Folders", u"Temporary Folders"}) {
    for (const MachineIni::Entry& entry : facts_.Entries(section)) add(entry.second);
  }
  return std::vector<Text>(folders.begin(), folders.end());
}

std::optional<Text> MachineShell::EnvironmentVariable(TextView name) {
  return Refuses(u"EnvironmentVariable", name) ? std::nullopt : facts_.Value(u"Environment", name);
}

Text MachineShell::ExpandEnvironment(TextView text) {
  Text expanded;
  while (!text.empty()) {
    const size_t open = text.find(u'%');
    const size_t close = open == TextView::npos ? open : text.find(u'%', open + 1);
    if (close == TextView::npos) break;
    expanded.append(text.substr(0, open));
    if (const auto value = EnvironmentVariable(text.substr(open + 1, close - open - 1))) {
      expanded.append(*value);
      text.remove_prefix(close + 1);
    } else {
      // The second percent sign may begin another variable.
      expanded.append(text.substr(open, close - open));
      text.remove_prefix(close);
    }
  }
  return expanded.append(text);
}

std::optional<platform::Shortcut> MachineShell::OpenShortcut(TextView path) {
  if (Refuses(u"OpenShortcut", path)) return std::nullopt;
  return files_.ReadFile(path).and_then(
      [](const std::string& bytes) { return platform::ReadShortcut(bytes); });
}

}  // namespace tavix::machine
