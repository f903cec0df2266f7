#pragma once

#include "platform/windows/windows_api.h"

// The colours of the window's own parts; lists and trees have those of the system.
namespace tavix::win32 {

constexpr COLORREF kGroundColor = RGB(232, 238, 245);
constexpr COLORREF kPanelColor = RGB(246, 249, 252);
constexpr COLORREF kLineColor = RGB(160, 178, 198);
constexpr COLORREF kTitleColor = RGB(28, 70, 120);
constexpr COLORREF kTitleTextColor = RGB(255, 255, 255);
constexpr COLORREF kTextColor = RGB(24, 36, 52);
constexpr COLORREF kFaintTextColor = RGB(134, 146, 160);
constexpr COLORREF kLinkColor = RGB(0, 84, 166);
constexpr COLORREF kAccentColor = RGB(38, 110, 184);
constexpr COLORREF kAccentDarkColor = RGB(26, 84, 146);
constexpr COLORREF kButtonColor = RGB(252, 253, 254);
constexpr COLORREF kPressedColor = RGB(214, 225, 238);
constexpr COLORREF kFillColor = RGB(120, 180, 232);

}  // namespace tavix::win32
