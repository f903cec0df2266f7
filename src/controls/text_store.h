#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "text/text.h"

namespace tavix {

// A text in a TextStore. Default: the empty text.
struct StoredText {
  uint32_t position = 0;
  uint32_t length = 0;
  bool operator==(const StoredText&) const = default;
};

// Holds many texts at a cost of eight bytes each beside their characters. Texts are freed all at once, by
// Clear. Put throws std::length_error beyond 2^32 characters.
class TextStore {
 public:
  StoredText Put(TextView text);
  TextView Get(StoredText stored) const {
    if (stored.length == 0) return {};
    return {chunks_[stored.position >> kShift] + (stored.position & kMask), stored.length};
  }
  void Clear();

 private:
  static constexpr uint32_t kShift = 16;
  static constexpr size_t kChunk = size_t{1} << kShift;
  static constexpr uint32_t kMask = kChunk - 1;

  std::vector<std::unique_ptr<char16_t[]>> blocks_;
  std::vector<char16_t*> chunks_;  // a block may be several chunks
  size_t used_ = kChunk;           // characters used in the last chunk
};

}  // namespace tavix
