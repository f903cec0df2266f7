#include "platform/windows/windows_shell.h"

#include "platform/recycle_bin_text.h"
#include "platform/windows/command_line.h"
#include "platform/windows/file_content.h"
#include "platform/windows/file_facts.h"
#include "platform/windows/shell_folders.h"
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

// A path that the shell takes, of something that is there.
std::optional<Text> ShellPath(TextView path) {
  std::optional<Text> normal = NormalPath(path);
  if (!normal || !LookUp(*normal)) return std::nullopt;
  if (normal->size() < MAX_PATH) return normal;
  wchar_t room[MAX_PATH + 8];
  const DWORD length = GetShortPathNameW(Wide(ExtendedPath(*normal)), room, MAX_PATH + 8);
  if (length == 0 || length >= MAX_PATH + 8) return std::nullopt;
  normal = NormalPath(FromWide(room));
  return normal && normal->size() < MAX_PATH ? normal : std::nullopt;
}

// Text in the code page of the system, as its programs wrote it.
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
  SHELLEXECUTEINFOW info = {};
  info.cbSize = sizeof(info);
  info.fMask = SEE_MASK_FLAG_NO_UI | SEE_MASK_NOASYNC | flags;
  info.hwnd = reinterpret_cast<HWND>(owner);
  info.lpVerb = verb;
  info.lpFile = Wide(command.target);
  info.lpParameters = command.arguments.empty() ? nullptr : Wide(command.arguments);
  info.nShow = style;
  return ShellExecuteExW(&info) != 0;
}

std::optional<SHQUERYRBINFO> QueryBins() {
  SHQUERYRBINFO info = {};
  info.cbSize = sizeof(info);
  if (FAILED(SHQueryRecycleBinW(nullptr, &info))) return std::nullopt;
  return info;
}

}  // namespace

bool WindowsShell::RunTarget(TextView target, int style) {
  return Execute(SplitCommand(target, IsThere), style);
}

bool WindowsShell::OpenPath(TextView path, int style) {
  const std::optional<Text> there = ShellPath(path);
  return there && Execute({*there, {}}, style);
}

bool WindowsShell::RunHidden(TextView target) { return RunTarget(target, SW_HIDE); }

bool WindowsShell::ShowFileProperties(platform::WindowHandle owner, TextView path) {
  const std::optional<Text> there = ShellPath(path);
  return there && Execute({*there, {}}, SW_SHOW, L"properties", SEE_MASK_INVOKEIDLIST, owner);
}

bool WindowsShell::DeleteToRecycleBin(TextView path) {
  std::optional<Text> there = ShellPath(path);
  if (!there || IsRoot(*there)) return false;
  // The shell reads a list of paths that ends with an empty one.
  there->push_back(u'\0');
  SHFILEOPSTRUCTW operation = {};
  operation.wFunc = FO_DELETE;
  operation.pFrom = Wide(*there);
  operation.fFlags = FOF_ALLOWUNDO | FOF_NOCONFIRMATION | FOF_SILENT | FOF_NOERRORUI;
  return SHFileOperationW(&operation) == 0 && !operation.fAnyOperationsAborted;
}

bool WindowsShell::EmptyRecycleBin(platform::WindowHandle owner) {
  constexpr DWORD kQuietly = SHERB_NOCONFIRMATION | SHERB_NOPROGRESSUI | SHERB_NOSOUND;
  const HRESULT result = SHEmptyRecycleBinW(reinterpret_cast<HWND>(owner), nullptr, kQuietly);
  // It is an error to the system when there is nothing to do, and none when something stays.
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

std::optional<Text> WindowsShell::EnvironmentVariable(TextView name) {
  if (name.empty() || HasNul(name)) return std::nullopt;
  const Text variable(name);
  Text value(MAX_PATH, u'\0');
  for (;;) {
    SetLastError(ERROR_SUCCESS);
    const DWORD length =
        GetEnvironmentVariableW(Wide(variable), WideBuffer(value.data()), static_cast<DWORD>(value.size()));
    if (length == 0 && GetLastError() != ERROR_SUCCESS) return std::nullopt;
    const bool fits = length < value.size();
    value.resize(length);
    if (fits) return value;
  }
}

Text WindowsShell::ExpandEnvironment(TextView text) {
  Text plain(text);
  if (text.find(u'%') == TextView::npos || HasNul(text)) return plain;
  Text expanded;
  for (;;) {
    const DWORD length = ExpandEnvironmentStringsW(Wide(plain), WideBuffer(expanded.data()),
                                                   static_cast<DWORD>(expanded.size()));
    if (length == 0) return plain;
    const bool fits = length <= expanded.size();
    expanded.resize(fits ? length - 1 : length);
    if (fits) return expanded;
  }
}

std::optional<platform::Shortcut> WindowsShell::OpenShortcut(TextView path) {
  return NormalPath(path)
      .and_then([](const Text& normal) { return ReadContent(normal); })
      .and_then([](const std::string& bytes) { return platform::ReadShortcut(bytes, FromCodePage); });
}

}  // namespace tavix::windows
