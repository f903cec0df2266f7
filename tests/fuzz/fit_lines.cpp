#include "text/fit_lines.h"

#include <algorithm>
#include <cstdint>

#include "require.h"

// The first two bytes of the input are the number of lines and their width. The result is the beginning of
// the text, fits into the lines, and is the whole text if that fits.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace tavix;
  if (size < 2) return 0;
  const size_t lines = data[0] % 20 + 1;
  const size_t width = data[1] % 90 + 3;
  const Text text(data + 2, data + size);
  const Text fitted = FitLines(text, lines, width);
  size_t taken = 0;
  for (const TextView line : Split(fitted, u"\n")) {
    taken += std::max<size_t>((line.size() + width - 1) / width, 1);
  }
  // A carriage return at the end of a full line takes no space.
  Require(taken <= 2 * lines && fitted.size() <= text.size() + 5);
  if (fitted == text) {
    Require(FitLines(fitted, lines, width) == fitted);
    return 0;
  }
  Require(fitted.ends_with(u"..."));
  Text head = fitted.substr(0, fitted.size() - 3);
  if (!text.starts_with(head) && head.ends_with(u"\r\n")) head.resize(head.size() - 2);
  Require(text.starts_with(head));
  Require(FitLines(text, lines + 1, width).size() + 5 >= head.size());
  return 0;
}
