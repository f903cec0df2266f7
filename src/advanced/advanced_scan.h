#pragma once

namespace tavix::mdlPubSelf {

// Runs each ticked function of lst over each ticked folder of trvRes, leaving out the program's own data and
// the folders of the setting ExceptFolders, and then compares duplicates. Moves the progress bar by one step
// for each folder. Ends at once when Cancel is pressed during a walk.
void RunAdvancedScan();

}  // namespace tavix::mdlPubSelf
