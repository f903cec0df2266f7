#pragma once

namespace tavix::mdlPubSelf {

// A key pressed anywhere in the main window: virtual key code and shift state (kShift, kCtrl, kAlt). A
// command key does what its button or picture does, whether or not that is enabled; Cancel alone must be
// visible. Every other key, and a command key with another shift state, does nothing.
void Form_KeyDown(int keyCode, int shift);

}  // namespace tavix::mdlPubSelf
