#pragma once

#include "controls/tree_view.h"

namespace tavix::mdlPubSelf {

// Fills trvPrivacy with the two branches of the Privacy page, everything ticked.
void BuildPrivacyTree();
// Shows the description of the clicked function in lblProgS.
void trvPrivacy_NodeClick(Node& node);

}  // namespace tavix::mdlPubSelf
