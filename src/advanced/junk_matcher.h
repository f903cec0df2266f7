#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "text/text.h"
#include "text/wildcard.h"

namespace tavix::mdlPubSelf {

// Finds junk files by the patterns of the junk types, in two steps: a file list picks names by wildcards,
// then IsConfirmed applies the stricter rule to each. The two compare letters differently: in capitals and in
// small letters.
class JunkMatcher {
 public:
  // Reloads JunkPatternChunks and JunkTypes if they have been rebuilt.
  void Update();
  // The wildcards of each chunk, to list files with.
  const std::vector<FilePatterns>& Lists() const { return lists_; }
  // Whether a name in capitals is in any of the lists.
  bool IsListed(TextView capitals) const { return allLists_.MatchCapitals(capitals); }
  // The text of chunk `list`.
  TextView Patterns(size_t list) const { return chunks_[list]; }
  // Whether the name matches the pattern of a junk type under the stricter rule: `#` is a digit, `[...]` a
  // set of characters, `?` exactly one character.
  bool IsConfirmed(TextView name) const;

 private:
  std::optional<uint32_t> number_;   // JunkListsNumber when the lists were loaded
  std::vector<Text> chunks_;         // a copy of JunkPatternChunks
  std::vector<FilePatterns> lists_;  // made of chunks_
  FilePatterns allLists_{u""};       // the patterns of all lists
  std::vector<Text> patterns_;       // of JunkTypes, in lower case
  PatternIndex index_;               // of patterns_
};

}  // namespace tavix::mdlPubSelf
