#include "window/win32/palette.h"

namespace tavix::win32 {
namespace {

bool IsHighContrast() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != FALSE &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

}  // namespace

// The title strip is a picture in its own colours, so the text on it keeps its colour.
Palette ReadPalette() {
  Palette palette;
  if (!IsHighContrast()) return palette;
  palette.background = palette.panel = GetSysColor(COLOR_WINDOW);
  palette.text = palette.line = palette.buttonLine = GetSysColor(COLOR_WINDOWTEXT);
  palette.faintText = GetSysColor(COLOR_GRAYTEXT);
  palette.link = GetSysColor(COLOR_HOTLIGHT);
  palette.accent = palette.accentDark = palette.fill = GetSysColor(COLOR_HIGHLIGHT);
  palette.accentText = GetSysColor(COLOR_HIGHLIGHTTEXT);
  palette.hot = palette.pressed = GetSysColor(COLOR_WINDOW);
  return palette;
}

}  // namespace tavix::win32
