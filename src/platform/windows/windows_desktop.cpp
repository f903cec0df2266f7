#include "platform/windows/windows_desktop.h"

#include "platform/windows/wide.h"
#include "platform/windows/windows_api.h"

#include <commctrl.h>

namespace tavix::windows {
namespace {

HWND Native(platform::WindowHandle window) { return reinterpret_cast<HWND>(window); }

bool HasTitle(HWND window, TextView title) {
  Text found(title.size() + 2, u'\0');
  const int length = GetWindowTextW(window, WideBuffer(found.data()), static_cast<int>(found.size()));
  return length >= 0 && TextView(found).substr(0, static_cast<size_t>(length)) == title;
}

}  // namespace

void WindowsDesktop::SendWindowMessage(platform::WindowHandle window, uint32_t message, intptr_t wParam,
                                       intptr_t lParam) {
  if (window != 0) SendMessageW(Native(window), message, static_cast<WPARAM>(wParam), lParam);
}

void WindowsDesktop::PostWindowMessage(platform::WindowHandle window, uint32_t message, intptr_t wParam,
                                       intptr_t lParam) {
  if (window != 0) PostMessageW(Native(window), message, static_cast<WPARAM>(wParam), lParam);
}

platform::WindowHandle WindowsDesktop::FindWindowByTitle(TextView title) {
  if (title.empty()) return 0;
  // FindWindowEx ignores letter case.
  const Text wanted(title);
  HWND window = nullptr;
  do {
    window = FindWindowExW(nullptr, window, nullptr, Wide(wanted));
  } while (window != nullptr && !HasTitle(window, title));
  return reinterpret_cast<platform::WindowHandle>(window);
}

void WindowsDesktop::ReleaseCapture() { ::ReleaseCapture(); }

void WindowsDesktop::SetTreeBackColor(platform::WindowHandle tree, uint32_t color) {
  constexpr uint32_t kSystemColor = 0x80000000;
  const DWORD back = (color & kSystemColor) != 0 ? GetSysColor(static_cast<int>(color & 0xFF)) : color;
  if (tree != 0) SendMessageW(Native(tree), TVM_SETBKCOLOR, 0, static_cast<LPARAM>(back));
}

}  // namespace tavix::windows
