#pragma once

namespace tavix::mdlPubSelf {

// Asks, then scans the functions of the setting `Functions` and cleans what was found, with the window
// disabled and nothing shown between the two. Does nothing while it runs itself, or a scan or a clean does.
void RunOneClick();
// A release of a mouse button on the picture: the left one runs it; then the page in use is marked again.
void picOne_MouseUp(int button);

}  // namespace tavix::mdlPubSelf
