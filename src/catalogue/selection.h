#pragma once

#include "controls/tree_view.h"

namespace tavix::mdlPubSelf {

// A tick of the privacy tree has changed. A branch hands its tick to its children. A function's tick makes
// its branch ticked, and marked with the button-face colour where some function of it is not.
void trvPrivacy_NodeCheck(Node& node);
// Gives every row of lsvResult the tick of cbxAll. More rows than a 16-bit integer counts are left alone.
void cbxAll_Click();

}  // namespace tavix::mdlPubSelf
