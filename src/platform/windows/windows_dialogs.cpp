#include "platform/windows/windows_dialogs.h"

#include <algorithm>

#include "platform/screen.h"
#include "platform/windows/com.h"
#include "platform/windows/input_box.h"
#include "platform/windows/message_box.h"
#include "platform/windows/wide.h"
#include "text/fit_lines.h"

#include <shlobj.h>

namespace tavix::windows {
namespace {

constexpr TextView kCaption = u"Tavix";
constexpr int kButtons = 0xF;

BOOL CALLBACK FindVisible(HWND window, LPARAM found) {
  const bool taken = IsWindowVisible(window) != FALSE && GetWindow(window, GW_OWNER) == nullptr;
  if (taken) *reinterpret_cast<HWND*>(found) = window;
  return taken ? FALSE : TRUE;
}

// The owner of a dialog: the active window. If another program is in front and no window of ours is active,
// the one that was active last. Null before the first window is shown.
HWND Owner() {
  if (const HWND active = GetActiveWindow()) return active;
  HWND visible = nullptr;
  EnumThreadWindows(GetCurrentThreadId(), FindVisible, reinterpret_cast<LPARAM>(&visible));
  return visible == nullptr ? nullptr : GetLastActivePopup(visible);
}

// Shortens a text to what a message box can show on this screen. A longer one would push the buttons off the
// screen.
Text FitOnScreen(TextView text) {
  constexpr int kBorders = 200;
  constexpr int kLineHeight = 18;
  constexpr size_t kLineLength = 70;
  const int lines = std::max((platform::screen.Height - kBorders) / kLineHeight, 5);
  return FitLines(text, static_cast<size_t>(lines), kLineLength);
}

}  // namespace

int WindowsDialogs::MsgBox(TextView text, int style) {
  const int answer = ShowMessageBox(Owner(), FitOnScreen(text), Text(kCaption), static_cast<UINT>(style));
  if (answer != 0) return answer;
  // The box couldn't be shown, so nobody agreed: answer No or Cancel where there is one.
  const int buttons = style & kButtons;
  if (buttons == platform::kYesNo || buttons == platform::kYesNoCancel) return platform::kNo;
  return buttons == platform::kOkCancel ? platform::kCancel : platform::kOk;
}

std::optional<Text> WindowsDialogs::InputBox(TextView prompt, TextView offered) {
  return ShowInputBox(Owner(), kCaption, prompt, offered);
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
