#include "window/win32/caption_paint.h"

#include <algorithm>
#include <iterator>

#include "window/caption.h"
#include "window/win32/paint.h"
#include "window/win32/tick_images.h"

namespace tavix::win32 {

void WriteCaptionLeft(HDC context, HWND window, TextView caption, RECT area, HFONT font, COLORREF color) {
  const bool hidden = (SendMessageW(window, WM_QUERYUISTATE, 0, 0) & UISF_HIDEACCEL) != 0;
  const Selection selected(context, font);
  SetBkMode(context, TRANSPARENT);
  SetTextColor(context, color);
  DrawTextW(context, reinterpret_cast<const wchar_t*>(caption.data()), static_cast<int>(caption.size()),
            &area, DT_LEFT | DT_VCENTER | DT_SINGLELINE | (hidden ? DT_HIDEPREFIX : 0));
}

void PaintChoiceCaption(HDC screen, const WindowContext& context, const Choice& choice) {
  RECT words = choice.area;
  words.left += TickWidth(context) + context.Pixels(60);
  const bool enabled = IsWindowEnabled(choice.window) != FALSE;
  WriteCaptionLeft(screen, choice.window, choice.caption, words, context.font.Get(),
                   enabled ? context.colors.text : context.colors.faintText);
  if (GetFocus() != choice.window) return;
  words.left -= context.Pixels(45);
  words.right = std::min<LONG>(
      words.right, words.left + context.Pixels(TextWidth(context, PlainCaption(choice.caption)) + 90));
  InflateRect(&words, 0, -context.Pixels(30));
  FrameArea(screen, words, context.colors.accent);
}

bool PaintsItself(UINT message) {
  constexpr UINT kMessages[] = {BM_SETCHECK, BM_SETSTATE, WM_KILLFOCUS,
                                WM_ENABLE,   WM_SETTEXT,  WM_UPDATEUISTATE};
  return std::ranges::find(kMessages, message) != std::end(kMessages);
}

}  // namespace tavix::win32
