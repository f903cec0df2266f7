#pragma once

#include "text/text.h"

namespace tavix {

// The capital of a letter, always a single code unit and the same on every platform. Any other character is
// returned unchanged.
char16_t ToUpper(char16_t c);
Text ToUpper(TextView text);
// The small letter of a capital, in the same way. Of two small forms, the one used inside a word.
Text ToLower(TextView text);

// Compares the code units of the upper-cased texts; a shorter text comes before a longer one that begins with
// it. Below zero, zero or above zero when `left` is before, equal to or after `right`. Keys, folders and rows
// are listed in this order.
int CompareIgnoringCase(TextView left, TextView right);
bool EqualIgnoringCase(TextView left, TextView right);

// For ordered containers.
struct LessIgnoringCase {
  using is_transparent = void;
  bool operator()(TextView left, TextView right) const { return CompareIgnoringCase(left, right) < 0; }
};

}  // namespace tavix
