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
  // What is known of one kind of text, such as the texts of a column. Use a new one after Clear.
  struct Kind {
    size_t notFound = 0;  // how many in a row were new
  };

  // A kind whose texts don't repeat is no longer looked for.
  StoredText Put(TextView text, Kind& kind);
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
  void RememberMore();

  static constexpr size_t kMostRecent = size_t{1} << 12U;
  static constexpr uint32_t kShift = 16;
  static constexpr size_t kChunk = size_t{1} << kShift;
  static constexpr uint32_t kMask = kChunk - 1;
  // Instead of a length: two units with the length follow.
  static constexpr char16_t kLong = 0xFFFF;

  // Each at its hash modulo their number, a power of two that grows with the texts stored.
  std::vector<Recent> recent_;
  size_t stored_ = 0;
  std::vector<std::unique_ptr<char16_t[]>> blocks_;
  std::vector<char16_t*> chunks_;  // a block may be several chunks
  size_t place_ = 0;               // the first chunk of the last block
  size_t used_ = kChunk;           // characters used from there on
};

}  // namespace tavix
