#pragma once

#include <cstdint>

#include "platform/shell.h"

namespace tavix::platform {

// The windows on the desktop. On a system without windows, none is found and messages go nowhere.
class Desktop {
 public:
  virtual ~Desktop() = default;
  // Sends a message. Returns when the window has handled it.
  virtual void SendWindowMessage(WindowHandle window, uint32_t message, intptr_t wParam, intptr_t lParam) = 0;
  // Posts a message. Returns at once.
  virtual void PostWindowMessage(WindowHandle window, uint32_t message, intptr_t wParam, intptr_t lParam) = 0;
  // A top-level window by its exact title; 0 when there is none.
  virtual WindowHandle FindWindowByTitle(TextView title) = 0;
  // Releases the mouse, so that the system can take over a drag.
  virtual void ReleaseCapture() = 0;
  virtual void SetTreeBackColor(WindowHandle tree, uint32_t color) = 0;
};

// Never null. Without a host it is noDesktop (platform/nothing.h).
extern Desktop* desktop;
extern Desktop* const noDesktop;

}  // namespace tavix::platform
