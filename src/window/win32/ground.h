#pragma once

#include "window/win32/window_context.h"

namespace tavix::win32 {

// What lies behind the controls and has no window of its own: the background, the title strip and the
// frame of the lower panel.
class Ground {
 public:
  explicit Ground(WindowContext& context) : context_(context) {}
  void Paint(HDC context) const;
  // The pixel that the mouse has moved over, with the buttons held down.
  void MouseMove(POINT position, int buttons) const;

 private:
  RECT Area(const Control& control) const;

  WindowContext& context_;
};

}  // namespace tavix::win32
