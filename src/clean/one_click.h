#pragma once

namespace tavix::mdlPubSelf {

// Asks, then scans the functions of the setting Functions and cleans what was found. The window is disabled
// and shows nothing between scan and clean. Does nothing while a one-click run, a scan or a clean runs.
void RunOneClick();
// A mouse button was released on the picture. The left one starts a run, and afterwards marks the current
// page again.
void picOne_MouseUp(int button);

}  // namespace tavix::mdlPubSelf
