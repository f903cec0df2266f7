#pragma once

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "text/text.h"

namespace tavix::mdlPubSelf {

// Answers many searches in one text faster than plain searching. Letter case matters.
//
// A part without `*` lies within one of the stretches between the text's `*`. When a length is first searched
// for, all pieces of that length are stored. Folded registry names and identifiers are mostly of one length,
// so these are little more than the names. The memory is limited to the order of the text: parts of further
// lengths, and parts with `*`, are searched for plainly.
class SubstringIndex {
 public:
  explicit SubstringIndex(Text text);
  SubstringIndex(const SubstringIndex&) = delete;
  SubstringIndex& operator=(const SubstringIndex&) = delete;

  // Whether the part occurs in the text. The empty part does unless the text is empty.
  bool Contains(TextView part);

 private:
  using Pieces = std::unordered_set<TextView>;

  size_t CountPieces(size_t length) const;
  Pieces CutPieces(size_t length) const;

  const Text text_;
  const std::vector<TextView> stretches_;
  std::unordered_map<size_t, Pieces> pieces_;  // by their length
  size_t capacity_;                            // the number of pieces that may still be stored
};

}  // namespace tavix::mdlPubSelf
