#include "scan/substring_index.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr TextView kStar = u"*";

}  // namespace

SubstringIndex::SubstringIndex(Text text)
    : text_(std::move(text)), stretches_(Split(text_, kStar)), capacity_(4 * text_.size()) {}

size_t SubstringIndex::CountPieces(size_t length) const {
  size_t count = 0;
  for (const TextView stretch : stretches_) {
    if (stretch.size() >= length) count += stretch.size() - length + 1;
  }
  return count;
}

SubstringIndex::Pieces SubstringIndex::CutPieces(size_t length) const {
  Pieces pieces(CountPieces(length));
  for (const TextView stretch : stretches_) {
    for (size_t at = 0; at + length <= stretch.size(); ++at) pieces.insert(stretch.substr(at, length));
  }
  return pieces;
}

bool SubstringIndex::Contains(TextView part) {
  if (part.empty()) return !text_.empty();
  const auto plainly = [&] { return TextView(text_).find(part) != TextView::npos; };
  if (part.find(kStar) != TextView::npos) return plainly();
  auto known = pieces_.find(part.size());
  if (known == pieces_.end()) {
    const size_t count = CountPieces(part.size());
    if (count > capacity_) return plainly();
    capacity_ -= count;
    known = pieces_.emplace(part.size(), CutPieces(part.size())).first;
  }
  return known->second.contains(part);
}

}  // namespace tavix::mdlPubSelf
