#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "text/text.h"

namespace tavix {

// Finds the patterns that can match a name. Most patterns are `*.ext` or a whole name, so that one look into
// a table by the last characters rules out most names. The others need characters that few names have.
// Patterns are numbered from 0. Searching changes nothing, so that several threads can do it.
class PatternIndex {
 public:
  // What every match of a pattern has.
  struct Needs {
    TextView tail;    // its end; empty if that can be anything
    Text characters;  // each of these somewhere, in any order
  };

  explicit PatternIndex(const std::vector<Needs>& patterns);
  PatternIndex() : PatternIndex(std::vector<Needs>()) {}

  // Whether `fits(i)` is true for a pattern `i`. It is asked about all patterns that the name, with `fold`
  // applied to each of its characters, can match by their needs, and perhaps about some more.
  template <class Fold, class Fits>
  bool Any(TextView name, const Fold& fold, const Fits& fits) const {
    Key key = 0;
    Marks marks = 0;
    for (size_t length = 0; length <= kLongest && length <= name.size(); ++length) {
      if (length > 0) key = Extended(key, length, fold(name[name.size() - length]));
      if (!used_[length]) continue;
      for (uint32_t i = slots_[Place(key, length)].first; i != kNone; i = items_[i].next) {
        if (marks == 0) {
          for (const char16_t c : name) marks |= MarkOf(fold(c));
        }
        if ((items_[i].marks & ~marks) == 0 && fits(i)) return true;
      }
    }
    return false;
  }

 private:
  using Key = uint64_t;    // the last characters of a text
  using Marks = uint64_t;  // a bit for each character of a text; several characters share each bit
  static constexpr size_t kLongest = 4;  // characters in a key
  static constexpr uint32_t kNone = UINT32_MAX;

  struct Slot {
    Key key = 0;
    size_t length = 0;
    uint32_t first = kNone;  // kNone for a free slot
  };
  struct Item {
    Marks marks = 0;
    uint32_t next = kNone;  // the next pattern with the same key
  };

  static Marks MarkOf(char16_t c) { return Marks{1} << (c & 63U); }
  // The key of a tail that has one more character before it.
  static Key Extended(Key key, size_t length, char16_t c) { return key | Key{c} << 16U * (length - 1); }
  // The slot of a key, or the free slot where it belongs.
  size_t Place(Key key, size_t length) const {
    constexpr Key kSpread = 0x9E3779B97F4A7C15;
    const size_t mask = slots_.size() - 1;
    size_t at = ((key * kSpread >> 32U) + length) & mask;
    while (slots_[at].first != kNone && (slots_[at].key != key || slots_[at].length != length)) {
      at = (at + 1) & mask;
    }
    return at;
  }

  std::vector<Slot> slots_;                // a hash table with free slots; its size is a power of two
  std::vector<Item> items_;                // one for each pattern
  std::array<bool, kLongest + 1> used_{};  // the lengths of the keys
};

}  // namespace tavix
