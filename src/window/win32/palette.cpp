#include "window/win32/palette.h"

#include <algorithm>
#include <cmath>

namespace tavix::win32 {
namespace {

// The share of a colour in the light of white.
double LuminanceOf(COLORREF color) {
  const auto part = [](int value) {
    const double share = value / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * part(GetRValue(color)) + 0.7152 * part(GetGValue(color)) + 0.0722 * part(GetBValue(color));
}

// A colour of the system for text, or `instead` if it can hardly be read on `back`. The user chooses each of
// these colours alone.
COLORREF Readable(int color, COLORREF back, COLORREF instead) {
  constexpr double kLeast = 4.5;
  const COLORREF chosen = GetSysColor(color);
  return ContrastOf(chosen, back) >= kLeast ? chosen : instead;
}

COLORREF BlackOrWhite(COLORREF back) {
  constexpr COLORREF kBlack = RGB(0, 0, 0), kWhite = RGB(255, 255, 255);
  return ContrastOf(kBlack, back) > ContrastOf(kWhite, back) ? kBlack : kWhite;
}

}  // namespace

double ContrastOf(COLORREF one, COLORREF other) {
  const auto [low, high] = std::minmax({LuminanceOf(one), LuminanceOf(other)});
  return (high + 0.05) / (low + 0.05);
}

// The title strip is a picture in its own colours, so the text on it keeps its colour.
Palette ReadPalette() {
  Palette palette;
  if (!IsHighContrast()) return palette;
  const COLORREF back = GetSysColor(COLOR_WINDOW);
  const COLORREF text = Readable(COLOR_WINDOWTEXT, back, BlackOrWhite(back));
  const COLORREF strong = GetSysColor(COLOR_HIGHLIGHT);
  palette.background = palette.panel = palette.hot = palette.pressed = back;
  palette.text = palette.noteText = palette.line = palette.buttonLine = palette.border = text;
  palette.faintText = Readable(COLOR_GRAYTEXT, back, text);
  palette.link = Readable(COLOR_HOTLIGHT, back, text);
  palette.accent = palette.accentDark = palette.fill = strong;
  palette.accentText = palette.fillText = Readable(COLOR_HIGHLIGHTTEXT, strong, BlackOrWhite(strong));
  return palette;
}

}  // namespace tavix::win32
