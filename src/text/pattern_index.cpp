#include "text/pattern_index.h"

#include <algorithm>
#include <bit>

namespace tavix {

PatternIndex::PatternIndex(const std::vector<Needs>& patterns)
    : slots_(std::bit_ceil(2 * patterns.size() + 2)), items_(patterns.size()) {
  for (uint32_t i = 0; i < patterns.size(); ++i) {
    const TextView tail = patterns[i].tail;
    const size_t length = std::min(tail.size(), kLongest);
    Key key = 0;
    for (size_t j = 1; j <= length; ++j) key = Extended(key, j, tail[tail.size() - j]);
    Slot& slot = slots_[Place(key, length)];
    items_[i].next = slot.first;
    for (const char16_t c : patterns[i].characters) items_[i].marks |= MarkOf(c);
    slot = {key, length, i};
    used_[length] = true;
  }
}

}  // namespace tavix
