#pragma once

#include <vector>

#include "text/text.h"

namespace tavix {

// The file names that a list of patterns stands for, letter case aside. Patterns are joined by `;`, blanks
// around each are dropped, an empty one stands for nothing. `*` is any run of characters, `?` one that is no
// dot, or none at the end of the name and right before a dot. `*.*` is every name, and a pattern that ends in
// a dot is only for names without one. Anything else stands for itself. Time is at most the product of the
// two lengths.
class FilePatterns {
 public:
  explicit FilePatterns(TextView patterns);
  bool Match(TextView name) const;
  // The same of a name that is in capitals already.
  bool MatchCapitals(TextView capitals) const;

 private:
  struct Pattern {
    Text capitals;
    bool noDot = false;   // only names without a dot
    bool suffix = false;  // a star before what has neither star nor question mark
    char16_t last = 0;    // what a name has to end in, 0 for anything
  };
  static Pattern Read(TextView pattern);
  // Of the patterns with this `last`.
  bool MatchesAny(char16_t last, TextView capitals) const;

  std::vector<Pattern> patterns_;  // in the order of what names have to end in
};

}  // namespace tavix
