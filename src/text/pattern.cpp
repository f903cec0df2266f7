#include "text/pattern.h"

#include <optional>

namespace tavix {
namespace {

bool InList(char16_t c, TextView list) {
  for (size_t i = 0; i < list.size(); ++i) {
    if (i + 2 < list.size() && list[i + 1] == u'-') {
      if (list[i] <= c && c <= list[i + 2]) return true;
      i += 2;
    } else if (list[i] == c) {
      return true;
    }
  }
  return false;
}

// An element of a pattern. It matches one character, or none if `empty` (`[]`).
struct Element {
  size_t length;
  bool empty;
};

// The element at the start of a pattern. Nothing for a bracket that isn't closed.
std::optional<Element> ReadElement(TextView pattern) {
  if (pattern[0] != u'[') return Element{1, false};
  const size_t close = pattern.find(u']', 1);
  if (close == TextView::npos) return std::nullopt;
  return Element{close + 1, close == 1};
}

bool ElementMatches(char16_t c, TextView element) {
  switch (element[0]) {
    case u'?':
      return true;
    case u'#':
      return c >= u'0' && c <= u'9';
    case u'[': {
      const TextView list = element.substr(1, element.size() - 2);
      if (list == u"!") return c == u'!';
      return list[0] == u'!' ? !InList(c, list.substr(1)) : InList(c, list);
    }
    default:
      return c == element[0];
  }
}

bool BracketsClose(TextView pattern) {
  for (size_t at = 0; at < pattern.size();) {
    const auto element = ReadElement(pattern.substr(at));
    if (!element) return false;
    at += element->length;
  }
  return true;
}

}  // namespace

bool MatchesPattern(TextView text, TextView pattern) {
  if (!BracketsClose(pattern)) return false;
  // On a mismatch the last `*` takes one more character. Earlier stars never need another try.
  size_t at = 0;
  size_t in = 0;
  size_t star = TextView::npos;
  size_t starEnd = 0;
  while (true) {
    if (in < pattern.size() && pattern[in] == u'*') {
      star = ++in;
      starEnd = at;
      continue;
    }
    if (in < pattern.size()) {
      const Element element = *ReadElement(pattern.substr(in));
      if (element.empty) {
        in += element.length;
        continue;
      }
      if (at < text.size() && ElementMatches(text[at], pattern.substr(in, element.length))) {
        in += element.length;
        ++at;
        continue;
      }
    } else if (at == text.size()) {
      return true;
    }
    if (star == TextView::npos || starEnd >= text.size()) return false;
    in = star;
    at = ++starEnd;
  }
}

}  // namespace tavix
