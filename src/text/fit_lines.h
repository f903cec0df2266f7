#pragma once

#include "text/text.h"

namespace tavix {

// As much of a text as fits into so many lines, at least one, of so many characters each: a line that is
// longer goes on in the next. Where something is left out, the last line says so by three dots.
Text FitLines(TextView text, size_t lines, size_t width);

}  // namespace tavix
