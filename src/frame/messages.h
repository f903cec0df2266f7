#pragma once

#include "text/text.h"

namespace tavix::mdlPubSelf {

// A message of the catalogue beside the program, read anew each time. The empty text where the file or the
// key is missing. A message is one line of the file, shown as it stands there.
Text GetMessageText(TextView key);

// An information box with an OK button, on screen until it is answered.
void Inform(TextView text);

// The catalogues: messages and texts of forms; captions of menus.
Text TextCatalogue();
Text MenuCatalogue();

}  // namespace tavix::mdlPubSelf
