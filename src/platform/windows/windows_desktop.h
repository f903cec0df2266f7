#pragma once

#include "platform/desktop.h"

namespace tavix::windows {

// The desktop of the running session. Messages to window 0 are dropped.
class WindowsDesktop : public platform::Desktop {
 public:
  void SendWindowMessage(platform::WindowHandle window, uint32_t message, intptr_t wParam,
                         intptr_t lParam) override;
  void PostWindowMessage(platform::WindowHandle window, uint32_t message, intptr_t wParam,
                         intptr_t lParam) override;
  platform::WindowHandle FindWindowByTitle(TextView title) override;
  void ReleaseCapture() override;
  void SetTreeBackColor(platform::WindowHandle tree, uint32_t color) override;
};

}  // namespace tavix::windows
