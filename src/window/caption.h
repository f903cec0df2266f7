#pragma once

#include <functional>

#include "text/text.h"

namespace tavix {

// Gives the width of a text on one line, in twips.
using WidthOf = std::function<int(TextView)>;

// A caption as it is shown. An ampersand marks the letter after it and isn't shown; two ampersands show one.
Text PlainCaption(TextView caption);
// The letter that an ampersand marks, in capitals. 0 for none.
char16_t MarkedLetter(TextView caption);

}  // namespace tavix
