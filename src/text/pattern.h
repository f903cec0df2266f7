#pragma once

#include "text/text.h"

namespace tavix {

// Whether the whole text fits the wildcard pattern, letter case included: `?` is any one character, `*`
// any run, `#` one decimal digit, `[list]` one character of the list and `[!list]` one outside it, both
// with ranges such as `a-z`; `[]` stands for nothing. A pattern with an open `[` matches nothing. Time is
// at most the product of the two lengths.
bool MatchesPattern(TextView text, TextView pattern);

}  // namespace tavix
