#pragma once

namespace tavix::mdlPubSelf {

// Takes away what a run that was killed left half written in the folders that the program itself writes
// into: its data folder and the backup folders, that of the setting and the default one. Called at the
// start, once the settings are known and no other copy runs.
void RemoveLeftTemporaries();

}  // namespace tavix::mdlPubSelf
