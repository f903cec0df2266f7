#include "platform/windows/windows_host.h"

#include <algorithm>

#include "platform/screen.h"
#include "platform/windows/windows_locale.h"

namespace tavix::windows {
namespace {

// The primary screen, which a machine without one shows as a screen of the usual size.
platform::Screen ReadPrimaryScreen() {
  constexpr int kTwipsPerInch = 1440;
  platform::Screen screen;
  const int width = GetSystemMetrics(SM_CXSCREEN);
  const int height = GetSystemMetrics(SM_CYSCREEN);
  if (width > 0 && height > 0) {
    screen.Width = width;
    screen.Height = height;
  }
  const ScreenContext context(GetDC(nullptr));
  const int dotsPerInch = context ? GetDeviceCaps(context.Get(), LOGPIXELSX) : 0;
  if (dotsPerInch > 0) screen.TwipsPerPixel = std::max(1, kTwipsPerInch / dotsPerInch);
  return screen;
}

}  // namespace

WindowsHost::WindowsHost() {
  platform::registry = &merged_;
  platform::clock = &clock_;
  userLocale = ReadUserLocale();
  platform::screen = ReadPrimaryScreen();
}

WindowsHost::~WindowsHost() {
  platform::registry = nullptr;
  platform::clock = nullptr;
  userLocale = Locale();
  platform::screen = platform::Screen();
}

}  // namespace tavix::windows
