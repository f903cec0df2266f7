#pragma once

#include "controls/list_view.h"
#include "controls/tree_view.h"

namespace tavix::mdlPubSelf {

// Gives a tree and all its nodes the colours of the list next to it.
void ColorTreeLike(TreeView& tree, const ListView& list);

}  // namespace tavix::mdlPubSelf
