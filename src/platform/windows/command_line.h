#pragma once

#include <functional>

#include "text/text.h"

namespace tavix::windows {

// A program, file or address to start, and its arguments, unchanged.
struct Command {
  Text target;
  Text arguments;
};

// Whether a text begins with a scheme ("http:", "mailto:"). One letter and a colon is a drive, not a scheme.
bool IsAddress(TextView text);

// Splits a command line into its target and its arguments. The first rule that applies:
// - A text in quotes: the target is the part in quotes.
// - An address, or a text that `isThere` knows as a whole: all of it, blanks included.
// - The shortest beginning up to a blank that `isThere` knows, with or without ".exe".
// - The first word.
// An empty text gives an empty target.
Command SplitCommand(TextView text, const std::function<bool(TextView path)>& isThere);

}  // namespace tavix::windows
