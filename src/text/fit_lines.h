#pragma once

#include "text/text.h"

namespace tavix {

// As much of a text as fits into as many lines as given, at least one, of as many characters each as given: a
// line that is longer goes on in the next. Where something is left out, the last line says so by three dots.
Text FitLines(TextView text, size_t lines, size_t width);

}  // namespace tavix
