#pragma once

#include "controls/control.h"
#include "platform/windows/windows_api.h"

// What messages of mouse and keys carry, as the models' events take it.
namespace tavix::win32 {

// The mouse buttons held down, from a mouse message's wParam.
inline int HeldButtons(WPARAM wParam) {
  return ((wParam & MK_LBUTTON) != 0 ? kLeftButton : 0) | ((wParam & MK_RBUTTON) != 0 ? kRightButton : 0);
}

// The point in a mouse message's lParam.
inline POINT PointOf(LPARAM lParam) {
  return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

// Whether a key message comes from a key that is held down.
inline bool IsRepeated(LPARAM lParam) { return (lParam & (1 << 30)) != 0; }

// The shift keys held down when the message in work was posted.
inline int HeldShiftKeys() {
  const auto held = [](int key, int mask) { return GetKeyState(key) < 0 ? mask : 0; };
  return held(VK_SHIFT, kShift) | held(VK_CONTROL, kCtrl) | held(VK_MENU, kAlt);
}

}  // namespace tavix::win32
