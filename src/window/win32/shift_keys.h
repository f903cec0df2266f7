#pragma once

#include "controls/control.h"
#include "platform/windows/windows_api.h"

namespace tavix::win32 {

// The shift state as the models' events take it.
inline int HeldShiftKeys() {
  const auto held = [](int key, int mask) { return GetKeyState(key) < 0 ? mask : 0; };
  return held(VK_SHIFT, kShift) | held(VK_CONTROL, kCtrl) | held(VK_MENU, kAlt);
}

}  // namespace tavix::win32
