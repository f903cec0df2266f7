#include "window/win32/paint.h"

#include "window/win32/palette.h"

namespace tavix::win32 {

void FillArea(HDC context, const RECT& area, COLORREF color) {
  SetDCBrushColor(context, color);
  FillRect(context, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void FrameArea(HDC context, const RECT& area, COLORREF color) {
  SetDCBrushColor(context, color);
  FrameRect(context, &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
}

void WriteText(HDC context, TextView text, RECT area, HFONT font, COLORREF color, UINT format) {
  const Selection selected(context, font);
  SetBkMode(context, TRANSPARENT);
  SetTextColor(context, color);
  DrawTextW(context, reinterpret_cast<const wchar_t*>(text.data()), static_cast<int>(text.size()), &area,
            format | DT_NOPREFIX);
}

ButtonLook LookOf(UINT state, bool accented) {
  if ((state & ODS_DISABLED) != 0) return {kGroundColor, kLineColor, kFaintTextColor};
  const bool pressed = (state & ODS_SELECTED) != 0;
  if (accented) return {pressed ? kAccentDarkColor : kAccentColor, kAccentDarkColor, kTitleTextColor};
  return {pressed ? kPressedColor : kButtonColor, kLineColor, kTextColor};
}

void DrawButtonFace(HDC context, RECT area, const ButtonLook& look, UINT state) {
  FillArea(context, area, look.face);
  FrameArea(context, area, look.line);
  if ((state & ODS_FOCUS) == 0) return;
  InflateRect(&area, -3, -3);
  SetTextColor(context, look.text);
  SetBkColor(context, look.face);
  DrawFocusRect(context, &area);
}

}  // namespace tavix::win32
