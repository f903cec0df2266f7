#pragma once

#include <cstdint>

#include "platform/shell.h"

namespace tavix::platform {

// The windows on the desktop. Where there are none, nothing is found and nothing happens.
class Desktop {
 public:
  virtual ~Desktop() = default;
  // Returns when the message has been handled.
  virtual void SendWindowMessage(WindowHandle window, uint32_t message, intptr_t first, intptr_t second) = 0;
  // Returns at once.
  virtual void PostWindowMessage(WindowHandle window, uint32_t message, intptr_t first, intptr_t second) = 0;
  // A top-level window by its exact title; 0 when there is none.
  virtual WindowHandle FindWindowByTitle(TextView title) = 0;
  // Lets go of the mouse, so that the window system can take over a drag.
  virtual void ReleaseCapture() = 0;
  virtual void SetTreeBackColor(WindowHandle tree, uint32_t color) = 0;
};

inline Desktop* desktop = nullptr;

}  // namespace tavix::platform
