#include "window/win32/window_context.h"

#include "window/win32/palette.h"

namespace tavix::win32 {

void MakeDrawingTools(WindowContext& context) {
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
  font.lfHeight = -context.Pixels(420);
  context.largeFont.Reset(CreateFontIndirectW(&font));
  context.ground.Reset(CreateSolidBrush(kGroundColor));
  context.panel.Reset(CreateSolidBrush(kPanelColor));
  context.title.Reset(CreateSolidBrush(kTitleColor));
}

}  // namespace tavix::win32
