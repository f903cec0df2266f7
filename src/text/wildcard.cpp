#include "text/wildcard.h"

#include <algorithm>

#include "text/letter_case.h"

namespace tavix {
namespace {

// On a mismatch the last star takes one more character. Earlier stars never need another try, because `?` has
// no choice in what it takes.
bool Fits(TextView capitals, TextView pattern) {
  size_t at = 0;
  size_t next = 0;
  size_t star = TextView::npos;  // the position after the last star
  size_t start = 0;              // where in the name the rest after that star is tried
  for (;;) {
    const bool atEnd = at == capitals.size();
    if (next < pattern.size() && pattern[next] == u'*') {
      star = ++next;
      start = at;
    } else if (next < pattern.size() && pattern[next] == u'?') {
      ++next;
      if (!atEnd && capitals[at] != u'.') ++at;
    } else if (next < pattern.size() && !atEnd && capitals[at] == pattern[next]) {
      ++next;
      ++at;
    } else if (next == pattern.size() && atEnd) {
      return true;
    } else {
      if (star == TextView::npos || start == capitals.size()) return false;
      next = star;
      at = ++start;
    }
  }
}

}  // namespace

FilePatterns::FilePatterns(TextView patterns) {
  for (const TextView piece : Split(patterns, u";")) {
    if (const TextView pattern = Trim(piece); !pattern.empty()) patterns_.push_back(Read(pattern));
  }
  std::ranges::sort(patterns_, {}, &Pattern::last);
}

FilePatterns::Pattern FilePatterns::Read(TextView pattern) {
  Pattern read;
  if (pattern == u"*.*") pattern = u"*";
  if (pattern.back() == u'.') {
    read.noDot = true;
    pattern.remove_suffix(1);
  }
  read.capitals = ToUpper(pattern);
  if (!pattern.empty() && pattern.back() != u'*' && pattern.back() != u'?') read.last = read.capitals.back();
  read.suffix = pattern.starts_with(u'*') && pattern.substr(1).find_first_of(u"*?") == TextView::npos;
  return read;
}

bool FilePatterns::Match(TextView name) const { return MatchCapitals(ToUpper(name)); }

bool FilePatterns::MatchCapitals(TextView capitals) const {
  const char16_t last = capitals.empty() ? u'\0' : capitals.back();
  return MatchesAny(u'\0', capitals) || (last != u'\0' && MatchesAny(last, capitals));
}

bool FilePatterns::MatchesAny(char16_t last, TextView capitals) const {
  auto at = std::ranges::lower_bound(patterns_, last, {}, &Pattern::last);
  for (; at != patterns_.end() && at->last == last; ++at) {
    if (at->noDot && capitals.contains(u'.')) continue;
    if (at->suffix ? capitals.ends_with(TextView(at->capitals).substr(1)) : Fits(capitals, at->capitals)) {
      return true;
    }
  }
  return false;
}

}  // namespace tavix
