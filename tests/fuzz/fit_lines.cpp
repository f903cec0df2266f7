#include "text/fit_lines.h"

#include <algorithm>
#include <cstdint>

#include "require.h"

namespace {

using namespace tavix;

// The number of lines that a text takes. With `returnsTakeSpace` a carriage return takes the place of a
// character. FitLines counts it, but it isn't seen.
size_t LinesOf(TextView text, size_t width, bool returnsTakeSpace) {
  size_t lines = 0;
  for (TextView line : Split(text, u"\n")) {
    if (!returnsTakeSpace && line.ends_with(u'\r')) line.remove_suffix(1);
    lines += std::max<size_t>((line.size() + width - 1) / width, 1);
  }
  return lines;
}

}  // namespace

// The first two bytes of the input are the number of lines and their width. The result is the beginning of
// the text, fits into the lines, and is the whole text if that fits.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  if (size < 2) return 0;
  const size_t lines = data[0] % 20 + 1;
  const size_t width = data[1] % 90 + 3;
  const Text text(data + 2, data + size);
  const Text fitted = FitLines(text, lines, width);
  Require(LinesOf(fitted, width, false) <= lines);
  if (LinesOf(text, width, true) <= lines) {
    Require(fitted == text);
    return 0;
  }
  Require(fitted.ends_with(u"..."));
  Text head = fitted.substr(0, fitted.size() - 3);
  if (!text.starts_with(head) && head.ends_with(u"\r\n")) head.resize(head.size() - 2);
  Require(text.starts_with(head));
  Require(FitLines(text, lines + 1, width).size() + 5 >= head.size());
  return 0;
}
