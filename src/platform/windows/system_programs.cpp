#include "platform/windows/system_programs.h"

#include <algorithm>

#include "platform/windows/file_facts.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_path.h"
#include "text/letter_case.h"

namespace tavix::windows {
namespace {

// These are in the Windows folder, all others in the system folder.
constexpr TextView kInWindowsFolder[] = {u"hh.exe", u"regedit.exe"};

using FolderCall = UINT(WINAPI*)(LPWSTR, UINT);

Text FolderOf(FolderCall call) {
  wchar_t path[MAX_PATH] = L"";
  const UINT length = call(path, MAX_PATH);
  return length < MAX_PATH ? FromWide(path) : Text();
}

bool IsFile(TextView path) {
  bool sure = true;
  const std::optional<DWORD> attributes = FollowedAttributes(path, sure);
  return attributes && (*attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

}  // namespace

Text SystemFolder() { return FolderOf(GetSystemDirectoryW); }

std::optional<Text> SystemProgram(TextView name) {
  constexpr TextView kEnding = u".exe";
  if (name.empty() || name.find_first_of(u"\\/:") != TextView::npos) return std::nullopt;
  Text file(name);
  if (file.find(u'.') == Text::npos) file += kEnding;
  const bool inWindows = std::ranges::any_of(
      kInWindowsFolder, [&file](TextView program) { return EqualIgnoringCase(file, program); });
  const Text folder = inWindows ? FolderOf(GetSystemWindowsDirectoryW) : SystemFolder();
  const std::optional<Text> path = NormalPath(Concat(folder, u"\\", file));
  return path && IsFile(*path) ? path : std::nullopt;
}

}  // namespace tavix::windows
