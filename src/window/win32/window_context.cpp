// clang-format off
#include "window/win32/window_context.h"
#include <commctrl.h>
// clang-format on

namespace tavix::win32 {

void MakeDrawingTools(WindowContext& context) {
  context.dpi = GetDeviceCaps(windows::ScreenContext(GetDC(nullptr)).Get(), LOGPIXELSX);
  context.colors = ReadPalette();
  context.skin.emplace(context.dpi);
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  LOGFONTW font = metrics.lfMessageFont;
  context.font.Reset(CreateFontIndirectW(&font));
  font.lfUnderline = TRUE;
  context.linkFont.Reset(CreateFontIndirectW(&font));
  font.lfUnderline = FALSE;
  font.lfWeight = FW_BOLD;
  context.boldFont.Reset(CreateFontIndirectW(&font));
  font.lfHeight = MulDiv(font.lfHeight, 5, 4);
  context.titleFont.Reset(CreateFontIndirectW(&font));
  context.background.Reset(CreateSolidBrush(context.colors.background));
}

void MakeToolTips(WindowContext& context) {
  context.toolTips =
      CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0,
                      0, 0, context.window, nullptr, GetModuleHandleW(nullptr), nullptr);
  SendMessageW(context.toolTips, TTM_SETMAXTIPWIDTH, 0, context.Pixels(6000));
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
