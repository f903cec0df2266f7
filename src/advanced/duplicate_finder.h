#pragma once

namespace tavix::mdlPubSelf {

// Compares the candidates of each file name by size and time, as the settings say; contents aren't compared.
// Writes each group of duplicates to its own file and deletes the candidates. Meanwhile the timer loads
// groups into the result list; the rest is loaded at the end. Moves the progress bar by two steps. Cancel
// doesn't stop it.
void CompareDuplicateFiles();

}  // namespace tavix::mdlPubSelf
