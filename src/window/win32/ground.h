#pragma once

#include "window/win32/window_context.h"

namespace tavix::win32 {

// What lies behind the controls and has no window of its own: the background, the title strip with the
// places on it that can be clicked, and the frame of the lower panel.
class Ground {
 public:
  explicit Ground(WindowContext& context) : context_(context) {}
  void Paint(HDC screen, const RECT& area) const;
  // The pixel that the mouse has moved over, with the buttons held down.
  void MouseMove(POINT position, int buttons);
  // A button was released there.
  void MouseUp(POINT position, int button) const;

 private:
  bool Covers(const Control& control, POINT position) const;
  bool IsBare(POINT position) const;

  WindowContext& context_;
};

}  // namespace tavix::win32
