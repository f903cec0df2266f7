#pragma once

#include "controls/tree_view.h"
#include "text/text.h"

// trvOC is the tree of the functions of a one-click run.
namespace tavix::mdlPubSelf {

// Fills the tree with the functions of the Privacy, System and Registry pages, all unticked.
void BuildOneClickTree();
// Ticks the nodes whose keys stand in `keys`, a list as in the setting Functions. Unticks only the first
// node.
void TickOneClickFunctions(TextView keys);
// The ticked functions as such a list; "|" if there are none.
Text TickedOneClickFunctions();

// The user changed a tick: all nodes below get it.
void trvOC_NodeCheck(Node& node);

}  // namespace tavix::mdlPubSelf
