#include "advanced/junk_matcher.h"

#include "junk/junk_definitions.h"
#include "text/letter_case.h"
#include "text/pattern.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr TextView kSpecial = u"*?#[]";

// What every text has that matches a pattern by the stricter rule. Of the characters, only those before the
// first bracket are told.
PatternIndex::Needs NeedsOf(TextView pattern) {
  Text literals(pattern.substr(0, pattern.find(u'[')));
  std::erase_if(literals, [](char16_t c) { return kSpecial.contains(c); });
  return {pattern.substr(pattern.find_last_of(kSpecial) + 1), std::move(literals)};
}

}  // namespace

void JunkMatcher::Update() {
  if (number_ == JunkListsNumber) return;
  number_ = JunkListsNumber;
  chunks_ = JunkPatternChunks;
  lists_.clear();
  Text all;
  for (const Text& chunk : chunks_) {
    lists_.emplace_back(chunk);
    all += chunk + u";";
  }
  allLists_ = FilePatterns(all);
  patterns_.clear();
  for (const Text& type : JunkTypes) {
    const auto fields = Split(type, u"|");
    if (fields.size() > 1) patterns_.push_back(ToLower(fields[1]));
  }
  std::vector<PatternIndex::Needs> needs;
  for (const Text& pattern : patterns_) needs.push_back(NeedsOf(pattern));
  index_ = PatternIndex(needs);
}

bool JunkMatcher::IsConfirmed(TextView name) const {
  const Text lower = ToLower(name);
  return index_.Any(
      lower, [](char16_t c) { return c; }, [&](uint32_t i) { return MatchesPattern(lower, patterns_[i]); });
}

}  // namespace tavix::mdlPubSelf
