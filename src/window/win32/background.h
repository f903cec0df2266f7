#pragma once

#include "window/win32/window_context.h"

namespace tavix::win32 {

// Paints the parts of the main window that are no controls: the outline, the title strip and the lower panel.
class Background {
 public:
  explicit Background(WindowContext& context) : context_(context) {}
  void Paint(HDC canvas) const;
  // The mouse has moved to this pixel, with these buttons held down.
  void MouseMove(POINT position, int buttons);

 private:
  bool Covers(const Control& control, POINT position) const;
  bool IsBare(POINT position) const;

  WindowContext& context_;
};

}  // namespace tavix::win32
