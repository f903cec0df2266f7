#pragma once

namespace tavix::mdlPubSelf {

// Makes what is missing of the program's data tree, empties the duplicate finder's scratch folders, and
// gives every folder of the tree and every file in the data folder the attributes hidden and system. What
// can't be made or set is passed over.
void PrepareDataFolders();

}  // namespace tavix::mdlPubSelf
