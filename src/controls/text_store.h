#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "text/text.h"

namespace tavix {

// A text in a TextStore. Default: the empty text.
struct StoredText {
  uint32_t position = 0;  // of its length in the store; 0 for the empty text
  bool operator==(const StoredText&) const = default;
};

// Holds many texts at a cost of six bytes each beside their characters: a StoredText, and the length in front
// of the characters. A text that was put in lately is mostly found and not stored again. Texts are freed all
// at once, by Clear. Put throws std::length_error beyond 2^32 characters.
class TextStore {
 public:
  StoredText Put(TextView text);
  TextView Get(StoredText stored) const {
    if (stored.position == 0) return {};
    const char16_t* const text = chunks_[stored.position >> kShift] + (stored.position & kMask);
    if (text[0] != kLong) return {text + 1, text[0]};
    return {text + 3, size_t{text[1]} << kShift | text[2]};
  }
  void Clear();

 private:
  // A text that was put in, and its hash.
  struct Recent {
    uint32_t hash = 0;
    StoredText text;
  };
  StoredText Append(TextView text);

  static constexpr size_t kRecent = 4096;
  static constexpr uint32_t kShift = 16;
  static constexpr size_t kChunk = size_t{1} << kShift;
  static constexpr uint32_t kMask = kChunk - 1;
  // Instead of a length: two units with the length follow.
  static constexpr char16_t kLong = 0xFFFF;

  std::vector<Recent> recent_ = std::vector<Recent>(kRecent);  // each at its hash modulo kRecent
  std::vector<std::unique_ptr<char16_t[]>> blocks_;
  std::vector<char16_t*> chunks_;  // a block may be several chunks
  size_t place_ = 0;               // the first chunk of the last block
  size_t used_ = kChunk;           // characters used from there on
};

}  // namespace tavix
