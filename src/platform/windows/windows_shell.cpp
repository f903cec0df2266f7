#include "platform/windows/windows_shell.h"

#include "platform/recycle_bin_text.h"
#include "platform/windows/command_line.h"
#include "platform/windows/environment.h"
#include "platform/windows/file_content.h"
#include "platform/windows/file_facts.h"
#include "platform/windows/named_folders.h"
#include "platform/windows/ordinary_rights.h"
#include "platform/windows/recycling.h"
#include "platform/windows/shell_folders.h"
#include "platform/windows/system_programs.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_path.h"

#include <shellapi.h>

namespace tavix::windows {
namespace {

bool HasNul(TextView text) { return text.find(u'\0') != TextView::npos; }

bool IsThere(TextView path) {
  const std::optional<Text> normal = NormalPath(path);
  bool sure = true;
  return normal && FollowedAttributes(*normal, sure);
}

// The path of an existing item in a form short enough for the shell. Nothing when it is missing or too long.
std::optional<Text> ShellPath(TextView path) {
  std::optional<Text> normal = NormalPath(path);
  if (!normal || !LookUp(*normal)) return std::nullopt;
  if (normal->size() < MAX_PATH) return normal;
  wchar_t shortPath[MAX_PATH + 8];
  const DWORD length = GetShortPathNameW(Wide(ExtendedPath(*normal)), shortPath, MAX_PATH + 8);
  if (length == 0 || length >= MAX_PATH + 8) return std::nullopt;
  normal = NormalPath(FromWide(shortPath));
  return normal && normal->size() < MAX_PATH ? normal : std::nullopt;
}

// Decodes text in the system's ANSI code page.
Text FromCodePage(std::string_view bytes) {
  const int size = static_cast<int>(bytes.size());
  Text text(bytes.size(), u'\0');
  text.resize(
      static_cast<size_t>(MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, WideBuffer(text.data()), size)));
  return text;
}

bool Execute(const Command& command, int style, const wchar_t* verb = nullptr, ULONG flags = 0,
             platform::WindowHandle owner = 0) {
  if (command.target.empty() || HasNul(command.target) || HasNul(command.arguments)) return false;
  // The working folder of a started program is also searched for its libraries, so it is the system folder.
  const Text folder = SystemFolder();
  SHELLEXECUTEINFOW info = {};
  info.cbSize = sizeof(info);
  info.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC | flags;
  info.hwnd = reinterpret_cast<HWND>(owner);
  info.lpVerb = verb;
  info.lpFile = Wide(command.target);
  info.lpParameters = command.arguments.empty() ? nullptr : Wide(command.arguments);
  info.lpDirectory = Wide(folder);
  info.nShow = style;
  return ShellExecuteExW(&info) != 0;
}

// Opens something for the user to look at. If this program is elevated, it is opened with the user's ordinary
// rights where possible.
bool OpenForUser(const Text& target, int style) {
  if (HasRaisedRights() && !HasNul(target) && OpenByDesktop(target, style)) return true;
  return Execute({target, {}}, style);
}

std::optional<SHQUERYRBINFO> QueryBins() {
  SHQUERYRBINFO info = {};
  info.cbSize = sizeof(info);
  if (FAILED(SHQueryRecycleBinW(nullptr, &info))) return std::nullopt;
  return info;
}

}  // namespace

bool WindowsShell::RunTarget(TextView target, int style) {
  Command command = SplitCommand(target, IsThere);
  if (IsAddress(command.target)) return OpenForUser(command.target, style);
  // A name without a folder: the system would look in the current folder and this program's folder first.
  if (!NormalPath(command.target)) {
    std::optional<Text> program = SystemProgram(command.target);
    if (!program) return false;
    command.target = std::move(*program);
  }
  return Execute(command, style);
}

bool WindowsShell::OpenPath(TextView path, int style) {
  const std::optional<Text> existing = ShellPath(path);
  return existing && OpenForUser(*existing, style);
}

bool WindowsShell::RunHidden(TextView target) { return RunTarget(target, SW_HIDE); }

bool WindowsShell::ShowFileProperties(platform::WindowHandle owner, TextView path) {
  const std::optional<Text> existing = ShellPath(path);
  return existing && Execute({*existing, {}}, SW_SHOW, L"properties", SEE_MASK_INVOKEIDLIST, owner);
}

bool WindowsShell::DeleteToRecycleBin(TextView path) {
  const std::optional<Text> existing = ShellPath(path);
  return existing && !IsRoot(*existing) && SendToBin(*existing);
}

bool WindowsShell::EmptyRecycleBin(platform::WindowHandle owner) {
  constexpr DWORD kQuietly = SHERB_NOCONFIRMATION | SHERB_NOPROGRESSUI | SHERB_NOSOUND;
  const HRESULT result = SHEmptyRecycleBinW(reinterpret_cast<HWND>(owner), nullptr, kQuietly);
  // The call fails for bins that are already empty and succeeds when something stays, so count.
  const std::optional<SHQUERYRBINFO> left = QueryBins();
  return left ? left->i64NumItems == 0 : SUCCEEDED(result);
}

std::optional<Text> WindowsShell::RecycleBinInfo() {
  return QueryBins().transform([](const SHQUERYRBINFO& info) {
    return platform::RecycleBinText(static_cast<uint64_t>(info.i64NumItems),
                                    static_cast<uint64_t>(info.i64Size));
  });
}

bool WindowsShell::DeleteAtRestart(TextView path) {
  const std::optional<Text> normal = NormalPath(path);
  if (!normal || IsRoot(*normal)) return false;
  return MoveFileExW(Wide(ExtendedPath(*normal)), nullptr, MOVEFILE_DELAY_UNTIL_REBOOT) != 0;
}

std::optional<Text> WindowsShell::SpecialFolderByNumber(int number) { return FolderByNumber(number); }
std::optional<Text> WindowsShell::SpecialFolderByName(TextView name) { return FolderByName(name); }
std::optional<Text> WindowsShell::UserTempFolder() { return UserTemp(); }
std::optional<Text> WindowsShell::SystemTempFolder() { return SystemTemp(); }
std::optional<std::vector<Text>> WindowsShell::NamedFolders() { return AllNamedFolders(); }

std::optional<Text> WindowsShell::EnvironmentVariable(TextView name) { return Variable(name); }
Text WindowsShell::ExpandEnvironment(TextView text) { return ExpandVariables(text); }

std::optional<platform::Shortcut> WindowsShell::OpenShortcut(TextView path) {
  return NormalPath(path)
      .and_then([](const Text& normal) { return ReadContent(normal); })
      .and_then([](const std::string& bytes) { return platform::ReadShortcut(bytes, FromCodePage); });
}

}  // namespace tavix::windows
