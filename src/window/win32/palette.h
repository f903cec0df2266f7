#pragma once

#include "platform/windows/windows_api.h"

namespace tavix::win32 {

// The colours of what we paint. Lists and trees have the system's. Each text stands out from what it is on.
struct Palette {
  COLORREF background = RGB(237, 242, 246);  // of windows
  COLORREF panel = RGB(255, 255, 255);       // of the lower panel, text boxes and buttons
  COLORREF line = RGB(194, 205, 215);
  COLORREF buttonLine = RGB(122, 141, 160);
  COLORREF title = RGB(15, 47, 69);  // of the title strip
  COLORREF border = title;           // of the main window
  COLORREF titleText = RGB(255, 255, 255);
  COLORREF text = RGB(22, 36, 47);
  COLORREF noteText = RGB(90, 106, 120);
  COLORREF faintText = RGB(90, 106, 120);  // of what is disabled
  COLORREF link = RGB(0, 95, 138);
  COLORREF accent = RGB(11, 110, 143);
  COLORREF accentDark = RGB(8, 82, 107);
  COLORREF accentText = RGB(255, 255, 255);
  COLORREF hot = RGB(220, 235, 242);      // a button under the mouse
  COLORREF pressed = RGB(197, 220, 231);  // a button held down
  COLORREF fill = RGB(124, 199, 222);     // of the progress bar
  COLORREF fillText = RGB(22, 36, 47);
};

// Our own colours, or the system's where the user has turned high contrast on.
Palette ReadPalette();

// Whether high contrast is on.
bool IsHighContrast();

// The contrast of two colours: from 1, the same, to 21, black and white.
double ContrastOf(COLORREF one, COLORREF other);

}  // namespace tavix::win32
