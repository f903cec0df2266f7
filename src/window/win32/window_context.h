#pragma once

#include "window/win32/change_queue.h"
#include "window/win32/gdi.h"

namespace tavix::win32 {

// What all bindings of a window share. It outlives them.
struct WindowContext {
  HWND window = nullptr;
  HWND toolTips = nullptr;
  int dpi = 96;
  Font font, boldFont, largeFont, linkFont;
  Brush ground, panel, title;
  ChangeQueue changes;
  HWND lostFocus = nullptr;  // the control that had the focus when it was hidden or disabled

  int Pixels(int twips) const { return MulDiv(twips, dpi, 1440); }
};

// Fonts and brushes, the fonts made from the system's message font.
void MakeDrawingTools(WindowContext& context);

}  // namespace tavix::win32
