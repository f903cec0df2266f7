#pragma once

namespace tavix::mdlPubSelf {

// Compares the candidates of each file name by the settings, by size and time alone, writes each group of
// duplicates to a file of its own and deletes the candidates. Meanwhile the timer loads groups into the list;
// what is left is loaded at the end. Moves the progress bar by two steps. Isn't stopped by Cancel.
void CompareDuplicateFiles();

}  // namespace tavix::mdlPubSelf
