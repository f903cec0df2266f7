#include "advanced/junk_matcher.h"

#include <algorithm>

#include "junk/junk_definitions.h"
#include "text/letter_case.h"
#include "text/pattern.h"

namespace tavix::mdlPubSelf {

void JunkMatcher::Update() {
  if (chunks_ != JunkPatternChunks) {
    chunks_ = JunkPatternChunks;
    lists_.clear();
    for (const Text& chunk : chunks_) lists_.emplace_back(chunk);
  }
  if (types_ == JunkTypes) return;
  types_ = JunkTypes;
  patterns_.clear();
  for (const Text& type : types_) {
    const auto fields = Split(type, u"|");
    if (fields.size() > 1) patterns_.push_back(ToLower(fields[1]));
  }
}

bool JunkMatcher::IsConfirmed(TextView name) const {
  return std::ranges::any_of(
      patterns_, [lower = ToLower(name)](const Text& pattern) { return MatchesPattern(lower, pattern); });
}

}  // namespace tavix::mdlPubSelf
