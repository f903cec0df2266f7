#pragma once

#include "text/text.h"

namespace tavix::mdlPubSelf {

// A message of the catalogue beside the program, read from the file each time. Empty if file or key is
// missing. A message is one line.
Text GetMessageText(TextView key);

// The same, or `builtIn` where file or key is missing.
Text GetMessageText(TextView key, TextView builtIn);

// Shows an information box with an OK button and waits for the answer.
void Inform(TextView text);

// Paths of the two catalogues: messages and texts of forms, and captions of menus.
Text TextCatalogue();
Text MenuCatalogue();

}  // namespace tavix::mdlPubSelf
