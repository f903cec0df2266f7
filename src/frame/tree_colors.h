#pragma once

#include "controls/list_view.h"
#include "controls/tree_view.h"

namespace tavix::mdlPubSelf {

// Gives a tree and all its nodes the colours of a list.
void ColorTreeLike(TreeView& tree, const ListView& list);

}  // namespace tavix::mdlPubSelf
