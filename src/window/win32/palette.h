#pragma once

#include "platform/windows/windows_api.h"

namespace tavix::win32 {

// The colours of the window's own parts; lists and trees have those of the system.
struct Palette {
  COLORREF ground = RGB(237, 242, 246);
  COLORREF panel = RGB(255, 255, 255);
  COLORREF line = RGB(194, 205, 215);
  COLORREF buttonLine = RGB(122, 141, 160);
  COLORREF title = RGB(15, 47, 69);
  COLORREF titleText = RGB(255, 255, 255);
  COLORREF text = RGB(22, 36, 47);
  COLORREF faintText = RGB(90, 106, 120);
  COLORREF link = RGB(0, 95, 138);
  COLORREF accent = RGB(11, 110, 143);
  COLORREF accentDark = RGB(8, 82, 107);
  COLORREF accentText = RGB(255, 255, 255);
  COLORREF hot = RGB(220, 235, 242);
  COLORREF pressed = RGB(197, 220, 231);
  COLORREF fill = RGB(124, 199, 222);
};

// The colours of the skin, or those of the system where the user has asked it for high contrast.
Palette ReadPalette();

}  // namespace tavix::win32
