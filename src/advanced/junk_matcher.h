#pragma once

#include <vector>

#include "text/text.h"
#include "text/wildcard.h"

namespace tavix::mdlPubSelf {

// The junk types as a scan of folders needs them.
class JunkMatcher {
 public:
  // Takes over JunkPatternChunks and JunkTypes where they have changed since.
  void Update();
  // The file lists to be gone through, one after the other.
  const std::vector<FilePatterns>& Lists() const { return lists_; }
  TextView Patterns(size_t list) const { return chunks_[list]; }
  // Whether a listed name is confirmed by the pattern of some type, under the stricter rule in which `#` is
  // a digit, `[...]` a set and `?` exactly one character.
  bool IsConfirmed(TextView name) const;

 private:
  std::vector<Text> chunks_, types_;  // as they were taken over
  std::vector<FilePatterns> lists_;   // one for each of the first
  std::vector<Text> patterns_;        // of the second, in lower case
};

}  // namespace tavix::mdlPubSelf
