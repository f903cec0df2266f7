// clang-format off
#include "window/win32/window_context.h"
#include <commctrl.h>
// clang-format on

#include <algorithm>

#include "platform/windows/resolution.h"

namespace tavix::win32 {

void MakeDrawingTools(WindowContext& context, int monitorDpi, int mostDpi) {
  context.colors = ReadPalette();
  const int wanted = windows::LayoutDpi(monitorDpi);
  const int dpi = std::min(wanted, mostDpi);
  LOGFONTW font = windows::MessageFont(monitorDpi);
  font.lfHeight = MulDiv(font.lfHeight, dpi, wanted);
  context.dpi = dpi;
  context.skin.emplace(dpi);
  context.font.Reset(CreateFontIndirectW(&font));
  font.lfUnderline = TRUE;
  context.linkFont.Reset(CreateFontIndirectW(&font));
  font.lfUnderline = FALSE;
  font.lfWeight = FW_BOLD;
  context.boldFont.Reset(CreateFontIndirectW(&font));
  font.lfHeight = MulDiv(font.lfHeight, 5, 4);
  context.titleFont.Reset(CreateFontIndirectW(&font));
  context.background.Reset(CreateSolidBrush(context.colors.background));
  SendMessageW(context.toolTips, TTM_SETMAXTIPWIDTH, 0, context.Pixels(6000));
}

void MakeToolTips(WindowContext& context) {
  context.toolTips =
      CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0,
                      0, 0, context.window, nullptr, GetModuleHandleW(nullptr), nullptr);
}

int TextWidth(const WindowContext& context, TextView text) {
  const windows::ScreenContext screen(GetDC(nullptr));
  const Selection selected(screen.Get(), context.font.Get());
  SIZE size{};
  GetTextExtentPoint32W(screen.Get(), reinterpret_cast<const wchar_t*>(text.data()),
                        static_cast<int>(text.size()), &size);
  return context.Twips(size.cx + 1);
}

int TextHeight(const WindowContext& context) {
  const windows::ScreenContext screen(GetDC(nullptr));
  const Selection selected(screen.Get(), context.font.Get());
  TEXTMETRICW metrics{};
  GetTextMetricsW(screen.Get(), &metrics);
  return metrics.tmHeight;
}

}  // namespace tavix::win32
