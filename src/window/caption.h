#pragma once

#include <functional>

#include "text/text.h"

namespace tavix {

// The room that a text takes on one line, in twips.
using WidthOf = std::function<int(TextView)>;

// A caption as it reads: an ampersand marks the letter behind it and isn't shown, two of them show one.
Text PlainCaption(TextView caption);

}  // namespace tavix
