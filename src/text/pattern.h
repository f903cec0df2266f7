#pragma once

#include "text/text.h"

namespace tavix {

// Whether the whole text matches the wildcard pattern. Letter case counts.
// - `?` matches any one character, `*` any characters or none, `#` a decimal digit.
// - `[list]` matches one character of the list, `[!list]` one outside it. A list may have ranges such as
//   `a-z`. `[]` matches the empty text.
// A pattern with an unclosed `[` matches nothing. The time is at most the product of both lengths.
bool MatchesPattern(TextView text, TextView pattern);

}  // namespace tavix
