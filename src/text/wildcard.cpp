#include "text/wildcard.h"

#include "text/letter_case.h"

namespace tavix {
namespace {

// On a mismatch the last star takes one more character. Earlier stars never need another try, because `?` has
// no choice in what it takes.
bool FitsByStars(TextView capitals, TextView pattern) {
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

constexpr TextView kWildcards = u"*?";

// What every name has that matches a pattern.
PatternIndex::Needs NeedsOf(TextView pattern) {
  Text literals(pattern);
  std::erase_if(literals, [](char16_t c) { return kWildcards.contains(c); });
  // Without a wildcard the tail is the whole pattern.
  return {pattern.substr(pattern.find_last_of(kWildcards) + 1), std::move(literals)};
}

}  // namespace

FilePatterns::FilePatterns(TextView patterns) {
  for (const TextView piece : Split(patterns, u";")) {
    if (const TextView pattern = Trim(piece); !pattern.empty()) patterns_.push_back(Read(pattern));
  }
  std::vector<PatternIndex::Needs> needs;
  for (const Pattern& pattern : patterns_) needs.push_back(NeedsOf(pattern.capitals));
  index_ = PatternIndex(needs);
}

FilePatterns::Pattern FilePatterns::Read(TextView pattern) {
  Pattern read;
  if (pattern == u"*.*") pattern = u"*";
  if (pattern.back() == u'.') {
    read.noDot = true;
    pattern.remove_suffix(1);
  }
  read.capitals = ToUpper(pattern);
  read.suffix = pattern.starts_with(u'*') && pattern.substr(1).find_first_of(kWildcards) == TextView::npos;
  return read;
}

// Few names need their capitals: those that end like a pattern.
bool FilePatterns::Match(TextView name) const {
  Text capitals;
  return index_.Any(
      name, [](char16_t c) { return ToUpper(c); },
      [&](uint32_t i) {
        if (capitals.empty()) capitals = ToUpper(name);
        return Fits(capitals, patterns_[i]);
      });
}

bool FilePatterns::MatchCapitals(TextView capitals) const {
  return index_.Any(
      capitals, [](char16_t c) { return c; }, [&](uint32_t i) { return Fits(capitals, patterns_[i]); });
}

bool FilePatterns::Fits(TextView capitals, const Pattern& pattern) {
  if (pattern.noDot && capitals.contains(u'.')) return false;
  return pattern.suffix ? capitals.ends_with(TextView(pattern.capitals).substr(1))
                        : FitsByStars(capitals, pattern.capitals);
}

}  // namespace tavix
