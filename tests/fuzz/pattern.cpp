#include "text/pattern.h"

#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

using namespace tavix;

// Matches by a table of all pairs of prefixes. For patterns without brackets only.
bool MatchesByTable(TextView text, TextView pattern) {
  std::vector<bool> row(text.size() + 1, false);
  row[0] = true;
  for (const char16_t element : pattern) {
    std::vector<bool> next(text.size() + 1, false);
    if (element == u'*') next[0] = row[0];
    for (size_t i = 0; i < text.size(); ++i) {
      if (element == u'*') {
        next[i + 1] = next[i] || row[i + 1];
      } else {
        const bool digit = text[i] >= u'0' && text[i] <= u'9';
        next[i + 1] = row[i] && (element == u'?' || (element == u'#' ? digit : element == text[i]));
      }
    }
    row = std::move(next);
  }
  return row.back();
}

}  // namespace

// The first line of the input is the pattern, the rest is the text.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  constexpr size_t kMost = 4096;
  const Text input(data, data + std::min(size, kMost));
  const size_t end = std::min(input.find(u'\n'), input.size());
  const TextView pattern = TextView(input).substr(0, end);
  const TextView text = end < input.size() ? TextView(input).substr(end + 1) : TextView();
  const bool matches = MatchesPattern(text, pattern);
  const size_t bracket = pattern.find(u'[');
  if (bracket == TextView::npos) {
    if (matches != MatchesByTable(text, pattern)) std::abort();
  } else if (matches && pattern.find(u']', bracket) == TextView::npos) {
    std::abort();
  }
  // With stars around it the pattern still matches.
  const Text wider = u"*" + Text(pattern) + u"*";
  if (matches && !MatchesPattern(text, wider)) std::abort();
  return 0;
}
