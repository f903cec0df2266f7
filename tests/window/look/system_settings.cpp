// The settings of the system that a program under Wine knows only from its start, or not at all: this reads
// them anew from where Windows keeps them, each time the program asks for high contrast.

// clang-format off
#include "platform/windows/windows_api.h"
#include <uxtheme.h>
// clang-format on

#include <array>
#include <cstdio>
#include <cwchar>

#include "window/win32/palette.h"

namespace tavix::win32 {
namespace {

struct NamedColor {
  const wchar_t* name;
  int index;
};
constexpr NamedColor kColors[] = {
    {L"Window", COLOR_WINDOW},
    {L"WindowText", COLOR_WINDOWTEXT},
    {L"GrayText", COLOR_GRAYTEXT},
    {L"Hilight", COLOR_HIGHLIGHT},
    {L"HilightText", COLOR_HIGHLIGHTTEXT},
    {L"HotTrackingColor", COLOR_HOTLIGHT},
    {L"ButtonFace", COLOR_BTNFACE},
    {L"ButtonText", COLOR_BTNTEXT},
    {L"ButtonShadow", COLOR_BTNSHADOW},
    {L"ButtonHilight", COLOR_BTNHIGHLIGHT},
    {L"InfoText", COLOR_INFOTEXT},
    {L"InfoWindow", COLOR_INFOBK},
    {L"ActiveTitle", COLOR_ACTIVECAPTION},
    {L"TitleText", COLOR_CAPTIONTEXT},
};

void TakeColors() {
  for (const NamedColor& color : kColors) {
    std::array<wchar_t, 32> text{};
    DWORD size = sizeof text;
    unsigned red = 0, green = 0, blue = 0;
    if (RegGetValueW(HKEY_CURRENT_USER, L"Control Panel\\Colors", color.name, RRF_RT_REG_SZ, nullptr,
                     text.data(), &size) != ERROR_SUCCESS ||
        std::swscanf(text.data(), L"%u %u %u", &red, &green, &blue) != 3)
      continue;
    const COLORREF wanted = RGB(red, green, blue);
    if (GetSysColor(color.index) != wanted) SetSysColors(1, &color.index, &wanted);
  }
}

void TakeFont() {
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  LOGFONTW stored{};
  DWORD size = sizeof stored;
  if (RegGetValueW(HKEY_CURRENT_USER, L"Control Panel\\Desktop\\WindowMetrics", L"MessageFont",
                   RRF_RT_REG_BINARY, nullptr, &stored, &size) != ERROR_SUCCESS ||
      stored.lfHeight == metrics.lfMessageFont.lfHeight)
    return;
  metrics.lfMessageFont = stored;
  SystemParametersInfoW(SPI_SETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
}

// The setting of high contrast itself.
bool IsContrastChosen() {
  std::array<wchar_t, 16> flags{};
  DWORD size = sizeof flags;
  return RegGetValueW(HKEY_CURRENT_USER, L"Control Panel\\Accessibility\\HighContrast", L"Flags",
                      RRF_RT_REG_SZ, nullptr, flags.data(), &size) == ERROR_SUCCESS &&
         (std::wcstoul(flags.data(), nullptr, 10) & HCF_HIGHCONTRASTON) != 0;
}

// With high contrast, Windows draws its controls in the colours of the system, too.
void TakeTheme(bool contrast) {
  if ((IsThemeActive() != FALSE) == contrast) EnableTheming(contrast ? FALSE : TRUE);
}

}  // namespace

bool IsHighContrast() {
  TakeColors();
  TakeFont();
  const bool contrast = IsContrastChosen();
  TakeTheme(contrast);
  return contrast;
}

}  // namespace tavix::win32
