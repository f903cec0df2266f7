#pragma once

#include <vector>

#include "text/pattern_index.h"
#include "text/text.h"

namespace tavix {

// Matches file names against a list of patterns, ignoring letter case. Patterns are separated by `;`. Blanks
// around each are dropped, and an empty pattern matches nothing.
// - `*` matches any characters or none.
// - `?` matches one character except a dot. Before a dot and at the end of the name it matches nothing.
// - `*.*` matches every name.
// - A pattern that ends in a dot matches only names without a dot.
// - Anything else matches itself.
// The time is at most the product of both lengths. Matching changes nothing, so that several threads can do
// it.
class FilePatterns {
 public:
  explicit FilePatterns(TextView patterns);
  bool Match(TextView name) const;
  // The same for a name that is upper-cased already.
  bool MatchCapitals(TextView capitals) const;

 private:
  struct Pattern {
    Text capitals;
    bool noDot = false;   // only names without a dot
    bool suffix = false;  // a star, then a text without wildcards
  };
  static Pattern Read(TextView pattern);
  static bool Fits(TextView capitals, const Pattern& pattern);

  std::vector<Pattern> patterns_;
  PatternIndex index_;
};

}  // namespace tavix
