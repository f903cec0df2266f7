#pragma once

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "text/text.h"

namespace tavix::mdlPubSelf {

// A text that is searched again and again: the answers of a plain search, letter case regarded, without its
// cost.
//
// A part without `*` lies within one of the stretches that the text's `*` leave. So for a length that is
// asked for, all pieces of that length of each stretch are kept: of folded registry names and identifiers,
// which are of one length, these are little more than the names themselves. They take memory of the order of
// the text; parts of further lengths, and parts with `*`, are searched for plainly.
class SubstringIndex {
 public:
  explicit SubstringIndex(Text text);
  SubstringIndex(const SubstringIndex&) = delete;
  SubstringIndex& operator=(const SubstringIndex&) = delete;

  // Whether the part occurs anywhere; the empty part does in every text that isn't empty.
  bool Contains(TextView part);

 private:
  using Pieces = std::unordered_set<TextView>;

  size_t CountPieces(size_t length) const;
  Pieces CutPieces(size_t length) const;

  const Text text_;
  const std::vector<TextView> stretches_;
  std::unordered_map<size_t, Pieces> pieces_;  // by their length
  size_t room_;                                // for how many more pieces there is room
};

}  // namespace tavix::mdlPubSelf
