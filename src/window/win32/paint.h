#pragma once

#include "text/text.h"
#include "window/win32/gdi.h"

namespace tavix::win32 {

void FillArea(HDC context, const RECT& area, COLORREF color);
void FrameArea(HDC context, const RECT& area, COLORREF color);
// Text on what is there already; `format` as DrawText has it.
void WriteText(HDC context, TextView text, RECT area, HFONT font, COLORREF color, UINT format);

struct ButtonLook {
  COLORREF face, line, text;
};
// The colours of a button in a state (ODS_...); an accented button stands out until it is disabled.
ButtonLook LookOf(UINT state, bool accented);
// Face, line and focus mark of a flat button.
void DrawButtonFace(HDC context, RECT area, const ButtonLook& look, UINT state);

}  // namespace tavix::win32
