#include "platform/windows/windows_dialogs.h"

#include "platform/windows/com.h"
#include "platform/windows/input_box.h"
#include "platform/windows/wide.h"

#include <shlobj.h>

namespace tavix::windows {
namespace {

constexpr TextView kCaption = u"Tavix";
constexpr int kButtons = 0xF;

}  // namespace

int WindowsDialogs::MsgBox(TextView text, int style) {
  const int answer =
      MessageBoxW(GetActiveWindow(), Wide(Text(text)), Wide(Text(kCaption)), static_cast<UINT>(style));
  if (answer != 0) return answer;
  const int buttons = style & kButtons;
  return buttons == platform::kYesNo || buttons == platform::kYesNoCancel ? platform::kYes : platform::kOk;
}

std::optional<Text> WindowsDialogs::InputBox(TextView prompt) {
  return ShowInputBox(GetActiveWindow(), kCaption, prompt);
}

std::optional<Text> WindowsDialogs::BrowseForFolder(platform::WindowHandle owner, TextView title) {
  const Text words(title);
  BROWSEINFOW browse = {};
  browse.hwndOwner = reinterpret_cast<HWND>(owner);
  browse.lpszTitle = Wide(words);
  browse.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
  using Place = std::remove_pointer_t<PIDLIST_ABSOLUTE>;
  const TaskMemory<Place> chosen(SHBrowseForFolderW(&browse));
  TaskMemory<wchar_t> path;
  if (!chosen || FAILED(SHGetNameFromIDList(chosen.Get(), SIGDN_FILESYSPATH, path.Receive()))) return {};
  return FromWide(path.Get());
}

}  // namespace tavix::windows
