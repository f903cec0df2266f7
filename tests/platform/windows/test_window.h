#pragma once

#include "platform/windows/handle.h"
#include "platform/windows/wide.h"

namespace tavix::windows {

struct WindowTraits {
  using Handle = HWND;
  static Handle Null() { return nullptr; }
  static void Close(Handle handle) { DestroyWindow(handle); }
};
using OwnedWindow = Owned<WindowTraits>;

// A hidden top-level window; null without a display.
inline OwnedWindow MakeWindow(const Text& title, const wchar_t* windowClass = L"STATIC") {
  return OwnedWindow(CreateWindowExW(0, windowClass, Wide(title), WS_OVERLAPPED, 0, 0, 10, 10, nullptr,
                                     nullptr, GetModuleHandleW(nullptr), nullptr));
}

}  // namespace tavix::windows
