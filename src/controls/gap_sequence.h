#pragma once

#include <algorithm>
#include <vector>

namespace tavix {

// A sequence with a gap at the place of the last removal. Removing elements in order, from either end, moves
// each remaining element at most once.
template <class T>
class GapSequence {
 public:
  int Size() const { return static_cast<int>(items_.size() - gap_); }
  T operator[](int i) const {
    const auto at = static_cast<size_t>(i);
    return items_[at < gapBegin_ ? at : at + gap_];
  }
  void PushBack(T item) {
    CloseGap();
    items_.push_back(item);
  }
  void Remove(int i) {
    const auto at = static_cast<size_t>(i);
    if (gap_ == 0) gapBegin_ = at;
    const auto base = items_.begin();
    if (at < gapBegin_) {
      std::copy_backward(base + at + 1, base + gapBegin_, base + gapBegin_ + gap_);
      gapBegin_ = at;
    } else {
      std::copy(base + gapBegin_ + gap_, base + at + gap_, base + gapBegin_);
      gapBegin_ = at;
    }
    ++gap_;
  }
  void Clear() {
    items_ = {};
    gap_ = gapBegin_ = 0;
  }
  // All elements without the gap, for sorting in place.
  std::vector<T>& Whole() {
    CloseGap();
    return items_;
  }

 private:
  void CloseGap() {
    if (gap_ == 0) return;
    items_.erase(items_.begin() + gapBegin_, items_.begin() + gapBegin_ + gap_);
    gap_ = 0;
  }

  std::vector<T> items_;
  size_t gapBegin_ = 0;
  size_t gap_ = 0;  // its length
};

}  // namespace tavix
