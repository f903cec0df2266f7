#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tavix {

// Text of the system: UTF-16, one code unit is one character.
using Text = std::u16string;
using TextView = std::u16string_view;

// The parts joined.
template <class... Parts>
Text Concat(const Parts&... parts) {
  Text joined;
  joined.reserve((TextView(parts).size() + ... + 0));
  (joined.append(TextView(parts)), ...);
  return joined;
}

// Without the blanks (U+0020, nothing else) at both ends.
TextView Trim(TextView text);

// The pieces of `text` between the occurrences of `separator`; one piece, the whole text, where there is
// none. An empty text has no pieces at all. The pieces point into `text`; `separator` is not empty.
std::vector<TextView> Split(TextView text, TextView separator);

// The element at an index, from 0; nothing if there are fewer.
inline std::optional<TextView> ElementAt(const std::vector<TextView>& elements, size_t index) {
  return index < elements.size() ? std::optional(elements[index]) : std::nullopt;
}

// Decimal digits of a whole number, with a minus sign where it is negative; no grouping.
Text ToText(long long number);

}  // namespace tavix
