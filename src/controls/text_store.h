#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "text/text.h"

namespace tavix {

// Where a text lies in a TextStore; the default is the empty text.
struct StoredText {
  uint32_t position = 0;
  uint32_t length = 0;
  bool operator==(const StoredText&) const = default;
};

// Holds many texts with no overhead of its own beside eight bytes a reference. Texts are let go all at
// once. It holds four thousand million code units; more throws std::length_error.
class TextStore {
 public:
  StoredText Put(TextView text);
  TextView Get(StoredText stored) const {
    if (stored.length == 0) return {};
    return {chunks_[stored.position >> kShift] + (stored.position & kMask), stored.length};
  }
  void Clear();
  size_t MemoryUsed() const { return chunks_.size() * kChunk * sizeof(char16_t); }

 private:
  static constexpr uint32_t kShift = 16;
  static constexpr size_t kChunk = size_t{1} << kShift;
  static constexpr uint32_t kMask = kChunk - 1;

  std::vector<std::unique_ptr<char16_t[]>> blocks_;
  std::vector<char16_t*> chunks_;  // a block longer than a chunk stands here once for each chunk in it
  size_t used_ = kChunk;           // in the last chunk
};

}  // namespace tavix
