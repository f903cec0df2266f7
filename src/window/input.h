#pragma once

// What keys and mouse do in the main window. The mouse handlers take one button, or all buttons held down.
namespace tavix::mdlPubSelf {

// A key pressed anywhere in the main window: virtual key code and shift state (kShift, kCtrl, kAlt). A
// command key does what its button or picture does, whether or not that is enabled. Escape cancels only while
// Cancel is visible. Any other key or shift state does nothing.
void Form_KeyDown(int keyCode, int shift);
// Whether that key is a command.
bool IsCommandKey(int keyCode, int shift);

// Drags the window while the left button is held: hands it over to the window system.
void MoveWindowByMouse(int buttons);
// The background and the title strip: unlights the icons, then drags the window.
void lblBorder_MouseMove(int buttons);

// The left button released on a picture of the title strip: minimizes the window, closes it.
void picMini_MouseUp(int button);
void picClose_MouseUp(int button);
// The left button released on the Options icon: marks the icon and shows the options at their first page;
// when they are closed, marks the current page again. Does nothing while the options are open.
void picOpt_MouseUp(int button);

}  // namespace tavix::mdlPubSelf
