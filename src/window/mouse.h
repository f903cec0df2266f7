#pragma once

// Moves of the mouse over the main window; `buttons` are those held down.
namespace tavix::mdlPubSelf {

// With the left button held, hands the window over to the window system, which drags it.
void MoveWindowByMouse(int buttons);
// The background, and the title strip, which does the same: puts the icons to rest, then moves the window.
void lblBorder_MouseMove(int buttons);

}  // namespace tavix::mdlPubSelf
