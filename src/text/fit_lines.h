#pragma once

#include "text/text.h"

namespace tavix {

// Shortens a text to `lines` lines (at least 1) of `width` characters. A longer line continues on the next.
// If anything is cut off, the last line is three dots.
Text FitLines(TextView text, size_t lines, size_t width);

}  // namespace tavix
