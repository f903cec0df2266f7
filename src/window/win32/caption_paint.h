#pragma once

#include "text/text.h"
#include "window/win32/window_context.h"

namespace tavix::win32 {

// A caption on one line at the left of an area, in the middle of its height. The letter behind an ampersand
// is underlined where `window` shows such letters.
void WriteCaptionLeft(HDC context, HWND window, TextView caption, RECT area, HFONT font, COLORREF color);

// What is painted for a check box or an option button: the mark is there already.
struct Choice {
  HWND window;
  RECT area;
  TextView caption;
};
void PaintChoiceCaption(HDC screen, const WindowContext& context, const Choice& choice);

// Behind these, a button of the system has painted itself without being asked.
bool PaintsItself(UINT message);

}  // namespace tavix::win32
