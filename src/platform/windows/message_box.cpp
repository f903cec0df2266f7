#include "platform/windows/message_box.h"

#include <algorithm>
#include <array>
#include <vector>

#include "platform/dialogs.h"
#include "platform/windows/handle.h"
#include "platform/windows/wide.h"

namespace tavix::windows {
namespace {

constexpr UINT kButtons = 0xF;

struct HookTraits {
  using Handle = HHOOK;
  static Handle Null() { return nullptr; }
  static void Close(Handle handle) { UnhookWindowsHookEx(handle); }
};

// The hook of the box that is about to open. It is taken off when the box is shown.
Owned<HookTraits> hook;
UINT openingStyle = 0;

RECT PlaceIn(HWND box, HWND button) {
  RECT area;
  GetWindowRect(button, &area);
  MapWindowPoints(nullptr, box, reinterpret_cast<POINT*>(&area), 2);
  return area;
}

LONG WidthOfWords(HDC context, const Text& words) {
  RECT room{};
  DrawTextW(context, Wide(words), -1, &room, DT_CALCRECT | DT_SINGLELINE);
  return room.right;
}

// The system has made the buttons for its own words. Longer words make all of them wider: from the left end
// of the row, or from further left where the row would leave the box.
void Widen(HWND box, const std::vector<HWND>& buttons, LONG words) {
  const RECT first = PlaceIn(box, buttons.front());
  const LONG height = first.bottom - first.top;
  const LONG width = words + height;
  if (width <= first.right - first.left) return;
  const LONG gap = buttons.size() > 1 ? std::max<LONG>(PlaceIn(box, buttons[1]).left - first.right, 0) : 0;
  const LONG row = width * static_cast<LONG>(buttons.size()) + gap * static_cast<LONG>(buttons.size() - 1);
  RECT inside;
  GetClientRect(box, &inside);
  LONG left = std::max<LONG>(std::min(first.left, inside.right - row - gap), 0);
  for (const HWND button : buttons) {
    SetWindowPos(button, nullptr, left, first.top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    left += width + gap;
  }
}

void SayWords(HWND box) {
  const ScreenContext context(GetDC(nullptr));
  const HGDIOBJ before =
      SelectObject(context.Get(), reinterpret_cast<HGDIOBJ>(SendMessageW(box, WM_GETFONT, 0, 0)));
  std::vector<HWND> buttons;
  LONG widest = 0;
  for (const int answer : {platform::kYes, platform::kNo, platform::kOk, platform::kCancel}) {
    const HWND button = GetDlgItem(box, answer);
    if (button == nullptr || (GetWindowLongPtrW(button, GWL_STYLE) & WS_VISIBLE) == 0) continue;
    // The only button of a box has the number of Cancel, so that Esc presses it.
    const bool alone = (openingStyle & kButtons) == MB_OK;
    const Text word = platform::buttonWord(alone ? platform::kOk : answer);
    if (!word.empty()) SetWindowTextW(button, Wide(word));
    widest = std::max(widest, WidthOfWords(context.Get(), word));
    buttons.push_back(button);
  }
  SelectObject(context.Get(), before);
  std::ranges::sort(buttons, {}, [box](HWND button) { return PlaceIn(box, button).left; });
  if (!buttons.empty()) Widen(box, buttons, widest);
}

bool IsBox(HWND window) {
  std::array<wchar_t, 8> name{};
  return window != nullptr && GetClassNameW(window, name.data(), static_cast<int>(name.size())) > 0 &&
         FromWide(name.data()) == u"#32770";
}

// The box is shown once it has been laid out.
LRESULT CALLBACK OnSent(int code, WPARAM wParam, LPARAM lParam) {
  const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(lParam);
  if (code == HC_ACTION && sent.message == WM_SHOWWINDOW && sent.wParam != FALSE && IsBox(sent.hwnd)) {
    hook.Reset();
    SayWords(sent.hwnd);
    return 0;
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}

}  // namespace

int ShowMessageBox(HWND owner, const Text& text, const Text& caption, UINT style) {
  openingStyle = style;
  if (platform::buttonWord)
    hook.Reset(SetWindowsHookExW(WH_CALLWNDPROC, OnSent, nullptr, GetCurrentThreadId()));
  const int answer = MessageBoxW(owner, Wide(text), Wide(caption), style);
  hook.Reset();
  return answer;
}

}  // namespace tavix::windows
