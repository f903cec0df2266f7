#pragma once

namespace tavix::mdlPubSelf {

// Makes the missing folders and files of the program's data, empties the duplicate finder's scratch folders,
// and makes every folder and data file hidden and system. A step that fails is skipped.
void PrepareDataFolders();

}  // namespace tavix::mdlPubSelf
