#include "text/fit_lines.h"

#include <algorithm>

namespace tavix {

Text FitLines(TextView text, size_t lines, size_t width) {
  size_t at = 0;
  size_t cut = 0;  // the start of the last line that fits
  for (size_t line = 1; line <= lines; ++line) {
    cut = at;
    const size_t end = std::min(text.find(u'\n', at), text.size());
    if (end - at > width) {
      at += width;
    } else if (end == text.size()) {
      return Text(text);
    } else {
      at = end + 1;
    }
  }
  const TextView head = text.substr(0, cut);
  const bool endsInLine = !head.empty() && head.back() != u'\n';
  return Concat(head, endsInLine ? TextView(u"\r\n") : TextView(), u"...");
}

}  // namespace tavix
