#include "window/win32/node_tip.h"

#include <commctrl.h>

#include <algorithm>

#include "platform/windows/wide.h"

namespace tavix::win32 {
namespace {

TOOLINFOW ToolOf(HWND tree) {
  TOOLINFOW tool{};
  tool.cbSize = sizeof tool;
  tool.uFlags = TTF_TRANSPARENT;  // clicks go through the tip
  tool.hwnd = tree;
  return tool;
}

}  // namespace

void NodeTip::Offer(HWND tree, const RECT& row, const RECT& text, HFONT font, TextView words) {
  Withdraw();
  if (window_ == nullptr) {
    window_ = CreateWindowExW(WS_EX_TOPMOST | WS_EX_TRANSPARENT, TOOLTIPS_CLASSW, nullptr,
                              WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0, 0, 0, tree, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
  }
  tree_ = tree;
  text_ = text;
  Text shown(words);
  TOOLINFOW tool = ToolOf(tree);
  tool.rect = row;
  tool.lpszText = windows::WideBuffer(shown.data());
  SendMessageW(window_, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
  SendMessageW(window_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
}

void NodeTip::Withdraw() {
  if (window_ == nullptr || tree_ == nullptr) return;
  TOOLINFOW tool = ToolOf(tree_);
  SendMessageW(window_, TTM_DELTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
  tree_ = nullptr;
}

void NodeTip::Relay(HWND tree, UINT message, WPARAM wParam, LPARAM lParam) const {
  if (window_ == nullptr) return;
  MSG relayed{};
  relayed.hwnd = tree;
  relayed.message = message;
  relayed.wParam = wParam;
  relayed.lParam = lParam;
  relayed.time = static_cast<DWORD>(GetMessageTime());
  GetCursorPos(&relayed.pt);
  SendMessageW(window_, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
}

// The tip has the same room on each side of its words. One that would leave the screen moves to the left.
void NodeTip::Place() const {
  RECT text = text_, tip{};
  MapWindowPoints(tree_, nullptr, reinterpret_cast<POINT*>(&text), 2);
  GetWindowRect(window_, &tip);
  const LONG width = tip.right - tip.left, height = tip.bottom - tip.top;
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  GetMonitorInfoW(MonitorFromRect(&text, MONITOR_DEFAULTTONEAREST), &screen);
  const LONG rightmost = std::max(screen.rcWork.left, screen.rcWork.right - width);
  const LONG left = std::min((text.left + text.right - width) / 2, rightmost);
  SetWindowPos(window_, nullptr, left, (text.top + text.bottom - height) / 2, 0, 0,
               SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void NodeTip::Close() {
  if (window_ != nullptr) DestroyWindow(window_);
  window_ = tree_ = nullptr;
}

}  // namespace tavix::win32
