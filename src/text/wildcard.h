#pragma once

#include <vector>

#include "text/text.h"

namespace tavix {

// Matches file names against a list of patterns, ignoring letter case. Patterns are separated by `;`. Blanks
// around each are dropped, and an empty pattern matches nothing.
// - `*` matches any characters or none.
// - `?` matches one character except a dot. Before a dot and at the end of the name it matches nothing.
// - `*.*` matches every name.
// - A pattern that ends in a dot matches only names without a dot.
// - Anything else matches itself.
// The time is at most the product of both lengths.
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
    char16_t last = 0;    // the last character a name must have; 0 for any
  };
  static Pattern Read(TextView pattern);
  // Whether a pattern with this `last` matches.
  bool MatchesAny(char16_t last, TextView capitals) const;

  std::vector<Pattern> patterns_;  // sorted by `last`
};

}  // namespace tavix
