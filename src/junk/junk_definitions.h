#pragma once

#include <vector>

#include "text/text.h"

namespace tavix::mdlPubSelf {

// The patterns of all junk types, enabled or not, joined by ";" into texts of limited length, as a file list
// takes them one at a time. A text is closed by the line that finds it longer than 240 characters, and the
// pattern of that line stands in none. The first pattern of the user follows the last built-in one with
// nothing between them.
inline std::vector<Text> JunkPatternChunks;

// One element for each line of the two files: the trimmed line with "|" for each tab, and behind it "|D" for
// a built-in type or "|U" for one of the user. Fields: description, pattern, recommended, enabled.
inline std::vector<Text> JunkTypes;

// Writes the built-in types behind what stands in their file when that is missing or shorter than 20 bytes,
// makes the user's file when it is missing, and builds both lists anew. What can't be read adds nothing.
void LoadJunkDefinitions();

}  // namespace tavix::mdlPubSelf
