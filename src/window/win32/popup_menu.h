#pragma once

#include "controls/menu.h"
#include "window/win32/window_context.h"

namespace tavix::win32 {

// Shows a menu at `menuCorner` of the context, or else at the mouse, waits for the user's choice and runs its
// click handler. Returns when that has returned.
void PopUp(const WindowContext& context, const Menu& menu);

}  // namespace tavix::win32
