#pragma once

#include "controls/tree_view.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

// Fills trvRes anew with the root and the drives that can be scanned, all ticked. Network and optical drives
// and those that aren't ready are left out.
void BuildScopeTree();
// Adds the subfolders of a drive or folder below the node of that key, unticked. A folder that can't be
// listed and a key that no node bears add nothing.
void LoadChildFolders(TextView key);
// Gives every node below this one its tick.
void PropagateCheckDown(const Node& node);

// The tick of a node has changed: its folders are loaded, if they aren't yet, and get the tick.
void trvRes_NodeCheck(Node& node);
// The same for a click on a node, which also opens or closes it.
void trvRes_NodeClick(Node& node);

}  // namespace tavix::mdlPubSelf
