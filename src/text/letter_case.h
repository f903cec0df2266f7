#pragma once

#include "text/text.h"

namespace tavix {

// The capital of a letter, one code unit for one, the same on every platform; anything else as it is.
char16_t ToUpper(char16_t c);
Text ToUpper(TextView text);
// The small letter of a capital, likewise; of two small forms, the one used inside a word.
Text ToLower(TextView text);

// Order of the capitals' code units, shorter first: below zero, zero or above zero as `left` stands
// before, equal to or after `right`. The order in which keys, folders and rows are listed.
int CompareIgnoringCase(TextView left, TextView right);
bool EqualIgnoringCase(TextView left, TextView right);

// For ordered containers.
struct LessIgnoringCase {
  using is_transparent = void;
  bool operator()(TextView left, TextView right) const { return CompareIgnoringCase(left, right) < 0; }
};

}  // namespace tavix
