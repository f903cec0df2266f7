#pragma once

#include <functional>
#include <optional>

#include "text/text.h"

namespace tavix {

// The text of an INI file: lines `[section]` and `key=value`. Letter case of names is no matter, nor are
// blanks and tabs around names and values; a pair of quotes, single or double, around a value is dropped.
// Lines that begin with `;`, and all that are neither of the two, are passed over. Sections of one name are
// one; of two keys of one name the first holds. What stands before the first section belongs to none. Each
// routine takes time linear in the text.

// Nothing when section or key are missing; a value may be empty.
std::optional<Text> ReadIniValue(TextView content, TextView section, TextView key);

// Visits the entries of a section in their order, also those whose name stands there again.
void VisitIniSection(TextView content, TextView section,
                     const std::function<void(TextView key, TextView value)>& visit);

// The text with one value changed and all else kept: other lines, their order, their line ends. A missing
// key goes behind the last line of its section that isn't blank, a missing section to the end, both with
// the line ends of the text (carriage return and line feed where it has none). A value with blanks or
// quotes at its ends is put between quotes; a line end in it becomes a blank, since a value is one line.
// The text stays as it is when a name can't stand in such a file: an empty one, one with a line end or
// blanks at its ends, a section with `]`, a key with `=` or a `[` or `;` in front.
Text WriteIniValue(TextView content, TextView section, TextView key, TextView value);

}  // namespace tavix
