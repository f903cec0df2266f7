#pragma once

#include "text/text.h"

namespace tavix::mdlPubSelf {

// The path of the file that a command of the registry runs or a value points at, guessed from its text
// alone: a command line, a default value of a class, a resource, a quoted path. A text that is the path of
// an existing file, quotes and outer blanks aside, is that path; beside this test nothing is looked up, and
// no variable is expanded. Empty where the text can't be judged. The result is never longer than the text
// and has no double quote.
Text ExtractCommandPath(TextView command);

// The same, and whether the path was seen to be that of a file.
struct CommandTarget {
  Text Path;
  bool IsFile = false;
};
CommandTarget FindCommandTarget(TextView command);

}  // namespace tavix::mdlPubSelf
