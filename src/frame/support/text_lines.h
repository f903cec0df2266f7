#pragma once

#include <vector>

#include "text/text.h"

namespace tavix {

// The lines of a text file in their order, read to its end at once. A line ends in a line feed, with or
// without a carriage return before it, or with the file; nothing else ends one, so a name with a line or
// paragraph separator in it stays whole. A file that can't be read has no lines.
std::vector<Text> ReadTextLines(TextView file);

}  // namespace tavix
