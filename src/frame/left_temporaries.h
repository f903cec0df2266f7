#pragma once

namespace tavix::mdlPubSelf {

// Deletes the half-written files that a killed run left in the data folder and in both backup folders, the
// default one and that of the settings. Called at the start, after the settings are loaded and if no other
// copy of the program runs.
void RemoveLeftTemporaries();

}  // namespace tavix::mdlPubSelf
