#pragma once

#include <functional>
#include <optional>

#include "text/text.h"

namespace tavix {

// The text of an INI file: lines `[section]` and `key=value`. Names ignore letter case. Blanks and tabs
// around names and values are dropped, and so is a pair of quotes, single or double, around a value. Lines
// that begin with `;` and lines of any other form are skipped. Sections with the same name are one section.
// Of two keys with the same name, the first counts. Lines before the first section belong to none. Each
// routine takes time linear in the text.

// The value of a key. Nothing when the section or the key is missing. A value may be empty.
std::optional<Text> ReadIniValue(TextView content, TextView section, TextView key);

// Visits the entries of a section in order, also repeated keys.
void VisitIniSection(TextView content, TextView section,
                     const std::function<void(TextView key, TextView value)>& visit);

// The text with one value changed. All other lines, their order and their line ends stay. A missing key is
// added after the last line of its section that isn't blank; a missing section is added at the end. New lines
// get the line ends of the text, or carriage return and line feed where it has none. A value with blanks or
// quotes at its ends is put in quotes. A line end in a value becomes a blank. Returns the text unchanged when
// a name can't be written: an empty one, one with a line end or with blanks at its ends, a section with `]`,
// a key with `=`, a key that begins with `[` or `;`.
Text WriteIniValue(TextView content, TextView section, TextView key, TextView value);

}  // namespace tavix
