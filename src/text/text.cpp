#include "text/text.h"

#include <algorithm>

namespace tavix {

TextView Trim(TextView text) {
  const size_t first = text.find_first_not_of(u' ');
  if (first == TextView::npos) return {};
  return text.substr(first, text.find_last_not_of(u' ') - first + 1);
}

Text BlankOut(TextView text, TextView characters) {
  Text cleaned(text);
  std::ranges::replace_if(
      cleaned, [characters](char16_t c) { return characters.contains(c); }, u' ');
  return Text(Trim(cleaned));
}

std::vector<TextView> Split(TextView text, TextView separator) {
  std::vector<TextView> pieces;
  if (text.empty()) return pieces;
  size_t begin = 0;
  for (size_t found; (found = text.find(separator, begin)) != TextView::npos;) {
    pieces.push_back(text.substr(begin, found - begin));
    begin = found + separator.size();
  }
  pieces.push_back(text.substr(begin));
  return pieces;
}

Text ToText(long long number) {
  const std::string digits = std::to_string(number);
  return Text(digits.begin(), digits.end());
}

}  // namespace tavix
