#pragma once

#include "controls/tree_view.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

// The pictures of the nodes of trvRes, by their numbers.
enum ScopeImage : int {
  kFixedDriveImage = 1,
  kFolderImage,
  kOpenFolderImage,
  kComputerImage,
  kRemovableDriveImage,
  kMemoryDriveImage,
  kUnknownDriveImage,
};

// Refills trvRes with the root and the drives that can be scanned, all ticked. Network drives, optical drives
// and drives that aren't ready are left out.
void BuildScopeTree();
// Adds the subfolders of a drive or folder below the node with this key, unticked. Adds nothing if the folder
// can't be listed or no node has the key. The node is no longer unopened.
void LoadChildFolders(TextView key);
// Copies the tick of the node to every node below it.
void PropagateCheckDown(const Node& node);

// Handles a change of a node's tick: loads its subfolders if it has none yet, and copies the tick to them.
void trvRes_NodeCheck(Node& node);
// Handles a click on a node: does the same, and expands or collapses the node.
void trvRes_NodeClick(Node& node);

}  // namespace tavix::mdlPubSelf
