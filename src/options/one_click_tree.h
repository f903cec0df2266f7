#pragma once

#include "controls/tree_view.h"
#include "text/text.h"

// trvOC, the tree of the functions of a one-click run.
namespace tavix::mdlPubSelf {

// Builds the tree anew from the functions of the Privacy, System and Registry pages, nothing ticked.
void BuildOneClickTree();
// Ticks the nodes whose keys stand in a list of keys as the setting Functions has it. No tick is taken away,
// but for that of the first node.
void TickOneClickFunctions(TextView keys);
// The ticked functions in that form; "|" where none is.
Text TickedOneClickFunctions();

// The user has changed a tick: all nodes below get it.
void trvOC_NodeCheck(Node& node);

}  // namespace tavix::mdlPubSelf
