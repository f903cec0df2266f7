#include "platform/windows/resolution.h"

#include <algorithm>
#include <optional>

#include "platform/windows/handle.h"

namespace tavix::windows {
namespace {

constexpr int kUsualDpi = 96;
constexpr int kUsualPoints = 9;  // of the message font
constexpr int kPointsPerInch = 72;

// A routine of user32 that older systems lack. Without it, the call has no result.
template <class Result, class... Parameters>
class LateRoutine {
 public:
  explicit LateRoutine(const char* name)
      : routine_(reinterpret_cast<Routine>(
            reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)))) {}
  std::optional<Result> operator()(Parameters... parameters) const {
    if (routine_ == nullptr) return std::nullopt;
    return routine_(parameters...);
  }

 private:
  using Routine = Result(WINAPI*)(Parameters...);
  Routine routine_;
};

int SystemDpi() {
  const ScreenContext screen(GetDC(nullptr));
  const int dpi = screen ? GetDeviceCaps(screen.Get(), LOGPIXELSX) : 0;
  return dpi > 0 ? dpi : kUsualDpi;
}

// The height of a font without the room above its letters.
int EmHeight(const LOGFONTW& font) {
  if (font.lfHeight < 0) return -font.lfHeight;
  const ScreenContext screen(GetDC(nullptr));
  const HFONT made = CreateFontIndirectW(&font);
  const HGDIOBJ before = SelectObject(screen.Get(), made);
  TEXTMETRICW metrics{};
  GetTextMetricsW(screen.Get(), &metrics);
  SelectObject(screen.Get(), before);
  DeleteObject(made);
  return metrics.tmHeight - metrics.tmInternalLeading;
}

}  // namespace

int DpiOf(HWND window) {
  static const LateRoutine<UINT, HWND> dpiForWindow("GetDpiForWindow");
  const UINT dpi = window != nullptr ? dpiForWindow(window).value_or(0) : 0;
  return dpi > 0 ? static_cast<int>(dpi) : SystemDpi();
}

LOGFONTW MessageFont(int dpi) {
  static const LateRoutine<BOOL, UINT, UINT, void*, UINT, UINT> parametersFor("SystemParametersInfoForDpi");
  NONCLIENTMETRICSW metrics{};
  metrics.cbSize = sizeof metrics;
  if (parametersFor(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0, static_cast<UINT>(dpi))
          .value_or(FALSE) == FALSE) {
    SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, metrics.cbSize, &metrics, 0);
    metrics.lfMessageFont.lfHeight = MulDiv(metrics.lfMessageFont.lfHeight, dpi, SystemDpi());
  }
  return metrics.lfMessageFont;
}

int LayoutDpi(int dpi) {
  const int usual = MulDiv(kUsualPoints, dpi, kPointsPerInch);
  return MulDiv(dpi, std::max(EmHeight(MessageFont(dpi)), usual), usual);
}

RECT WindowAround(RECT client, DWORD style, DWORD extendedStyle, int dpi) {
  static const LateRoutine<BOOL, RECT*, DWORD, BOOL, DWORD, UINT> adjustFor("AdjustWindowRectExForDpi");
  RECT whole = client;
  if (adjustFor(&whole, style, FALSE, extendedStyle, static_cast<UINT>(dpi)).value_or(FALSE) == FALSE) {
    whole = client;
    AdjustWindowRectEx(&whole, style, FALSE, extendedStyle);
  }
  return whole;
}

int SystemLength(int metric, int dpi) {
  static const LateRoutine<int, int, UINT> metricFor("GetSystemMetricsForDpi");
  return metricFor(metric, static_cast<UINT>(dpi)).value_or(GetSystemMetrics(metric));
}

MONITORINFO MonitorOf(HWND window) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  const HMONITOR found = window != nullptr ? MonitorFromWindow(window, MONITOR_DEFAULTTOPRIMARY)
                                           : MonitorFromPoint({0, 0}, MONITOR_DEFAULTTOPRIMARY);
  GetMonitorInfoW(found, &monitor);
  return monitor;
}

POINT Within(const RECT& area, POINT corner, SIZE size) {
  return {std::max(area.left, std::min(corner.x, area.right - size.cx)),
          std::max(area.top, std::min(corner.y, area.bottom - size.cy))};
}

platform::Screen ScreenOf(HWND window) {
  const MONITORINFO monitor = MonitorOf(window);
  const int dpi = LayoutDpi(DpiOf(window));
  const auto units = [dpi](LONG from, LONG to) { return MulDiv(to - from, kUsualDpi, dpi); };
  const RECT& whole = monitor.rcMonitor;
  const RECT& work = monitor.rcWork;
  const platform::Screen screen{.Width = units(whole.left, whole.right),
                                .Height = units(whole.top, whole.bottom),
                                .WorkHeight = units(work.top, work.bottom)};
  return screen.Width > 0 && screen.WorkHeight > 0 ? screen : platform::Screen{};
}

}  // namespace tavix::windows
