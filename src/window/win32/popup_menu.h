#pragma once

#include "controls/menu.h"
#include "window/win32/window_context.h"

namespace tavix::win32 {

// Shows a menu at the context's `menuCorner`, or at the mouse without one. Waits for the user's choice, runs
// its click handler and returns after that.
void PopUp(const WindowContext& context, const Menu& menu);

}  // namespace tavix::win32
