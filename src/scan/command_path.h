#pragma once

#include "scan/known_files.h"
#include "text/text.h"

namespace tavix::mdlPubSelf {

// The path of the file that a registry text points at: a command line, the default value of a class, a
// resource, a quoted path. If the text without quotes and outer blanks is the path of an existing file, the
// result is that path. Otherwise the path is guessed from the text alone; no variable is expanded. Empty if
// the text can't be judged. The result is never longer than the text and has no double quote.
Text ExtractCommandPath(TextView command);

// The same, and whether the path is known to be that of an existing file.
struct CommandTarget {
  Text Path;
  bool IsFile = false;
};
CommandTarget FindCommandTarget(TextView command, KnownFiles& files);

}  // namespace tavix::mdlPubSelf
