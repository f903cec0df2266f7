#pragma once

#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavix {

// All text is UTF-16. One code unit counts as one character.
using Text = std::u16string;
using TextView = std::u16string_view;

// Joins the parts.
template <class... Parts>
Text Concat(const Parts&... parts) {
  Text joined;
  joined.reserve((TextView(parts).size() + ... + 0));
  (joined.append(TextView(parts)), ...);
  return joined;
}

// The same as `left == right`, for texts that are compared often: the library compares one unit at a time.
inline bool SameText(TextView left, TextView right) {
  return left.size() == right.size() &&
         (left.empty() || std::memcmp(left.data(), right.data(), left.size() * sizeof(char16_t)) == 0);
}

// The text without blanks (only U+0020) at its ends.
TextView Trim(TextView text);

// The text with a blank for each of the characters, trimmed.
Text BlankOut(TextView text, TextView characters);

// Splits `text` at each `separator`, which must not be empty. Without a separator the result is the whole
// text; an empty text gives no pieces. The pieces point into `text`.
std::vector<TextView> Split(TextView text, TextView separator);

// The element at an index, counted from 0. Nothing if there are fewer.
inline std::optional<TextView> ElementAt(const std::vector<TextView>& elements, size_t index) {
  return index < elements.size() ? std::optional(elements[index]) : std::nullopt;
}

// A whole number in decimal digits, with a minus sign if it is negative, without grouping.
Text ToText(long long number);

}  // namespace tavix
