#pragma once

#include <functional>

#include "text/text.h"

namespace tavix::windows {

// What is started, and its arguments as they stand.
struct Command {
  Text target;
  Text arguments;
};

// Whether a text begins with a scheme ("http:", "mailto:"). A single letter is a drive.
bool IsAddress(TextView text);

// Takes apart what a user or a registry entry has in one text. An address ("http://...", "mailto:...") is a
// whole, blanks included; so is what `isThere` knows as a file or folder. Quotes hold a path with blanks.
// Without them the shortest beginning up to a blank that `isThere` knows, with or without ".exe", is the
// program, and where it knows none, the first word is. An empty target for an empty text.
Command SplitCommand(TextView text, const std::function<bool(TextView path)>& isThere);

}  // namespace tavix::windows
