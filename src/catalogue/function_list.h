#pragma once

namespace tavix::mdlPubSelf {

// Handles a click on a row of lst. Shows the description of the function in lblProgS, and the link to its
// options if it has any. The master row shows what its next tick will do. If no function has the caption (the
// setting in it has changed since), lblProgS stays as it is.
void lst_Click();
// Shows the options window at the page of the focused function. If the function has no page there, the window
// opens at the page shown last.
void lblOpt_Click();

}  // namespace tavix::mdlPubSelf
