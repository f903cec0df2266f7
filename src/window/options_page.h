#pragma once

namespace tavix::mdlPubSelf {

// A release of a mouse button on the Options icon: the left one shows the options window at its first page,
// unless it is open already. Its icon is the current one until the window is closed; then the page in use is
// marked again.
void picOpt_MouseUp(int button);

}  // namespace tavix::mdlPubSelf
