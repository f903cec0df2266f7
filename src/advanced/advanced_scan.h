#pragma once

namespace tavix::mdlPubSelf {

// Runs the ticked functions of lst over each ticked folder of trvRes, then compares duplicates. Skips the
// program's own data and the folders of the setting ExceptFolders. Moves the progress bar by one step for
// each folder. Returns at once if Cancel is pressed during a walk.
void RunAdvancedScan();

}  // namespace tavix::mdlPubSelf
