#pragma once

#include <functional>

#include "text/text.h"

namespace tavix {

// Gives the texts of the main window that stand side by side the room that they take in the language in use:
// the toolbar with Check All in front of it, the link with the words behind it, the time behind its word.
// `widthOf` tells the room that a text takes on one line, in twips. Called behind LayOutMainForm.
void FitTexts(const std::function<int(TextView)>& widthOf);

}  // namespace tavix
