#pragma once

#include "window/caption.h"

namespace tavix {

// Gives the options window its size, that of the room inside its frame, and all its controls their places.
// The window is as wide as the texts in use need, within what the smallest screen has.
void LayOutOptionsForm(const WidthOf& widthOf);

}  // namespace tavix
