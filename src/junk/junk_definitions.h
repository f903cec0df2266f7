#pragma once

#include <cstdint>
#include <vector>

#include "text/text.h"

namespace tavix::mdlPubSelf {

// The patterns of all junk types, enabled or not, joined by ";" into chunks. A file list takes one chunk at a
// time. A line that finds the chunk longer than 240 characters starts a new one, and its own pattern gets
// into no chunk. The first user pattern follows the last built-in one without a ";" between them.
inline std::vector<Text> JunkPatternChunks;

// One element for each line of the two files: the trimmed line with "|" for each tab, then "|D" for a
// built-in type or "|U" for a user type. The fields are description, pattern, recommended, enabled, origin.
inline std::vector<Text> JunkTypes;

// Another number each time the two lists are rebuilt.
inline uint32_t JunkListsNumber = 0;

// Rebuilds both lists from the two files. First appends the built-in types to their file if that is missing
// or shorter than 20 bytes, and creates the user's file if that is missing. A file that can't be read adds
// nothing.
void LoadJunkDefinitions();

}  // namespace tavix::mdlPubSelf
