#pragma once

#include "window/caption.h"

namespace tavix {

// Gives the window that asks for a junk type its size, that of the room inside its frame, and its controls
// their places.
void LayOutTypeForm(const WidthOf& widthOf);

}  // namespace tavix
