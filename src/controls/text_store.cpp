#include "controls/text_store.h"

#include <algorithm>
#include <stdexcept>

namespace tavix {

StoredText TextStore::Put(TextView text) {
  if (text.empty()) return {};
  if (used_ + text.size() > kChunk) {
    const size_t chunks = (text.size() + kChunk - 1) / kChunk;
    if (chunks_.size() + chunks > kChunk) throw std::length_error("TextStore");
    char16_t* block = blocks_.emplace_back(new char16_t[chunks * kChunk]).get();
    for (size_t i = 0; i < chunks; ++i) chunks_.push_back(block + i * kChunk);
    used_ = 0;
    if (chunks > 1) {
      std::copy(text.begin(), text.end(), block);
      used_ = kChunk;
      return {static_cast<uint32_t>((chunks_.size() - chunks) << kShift), static_cast<uint32_t>(text.size())};
    }
  }
  std::copy(text.begin(), text.end(), chunks_.back() + used_);
  const StoredText stored{static_cast<uint32_t>((chunks_.size() - 1) << kShift | used_),
                          static_cast<uint32_t>(text.size())};
  used_ += text.size();
  return stored;
}

void TextStore::Clear() {
  chunks_.clear();
  blocks_.clear();
  used_ = kChunk;
}

}  // namespace tavix
