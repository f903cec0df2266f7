#include "controls/text_store.h"

#include <algorithm>
#include <stdexcept>

namespace tavix {

StoredText TextStore::Put(TextView text, Kind& kind) {
  if (text.empty()) return {};
  constexpr size_t kNoRepeats = 4 * kMostRecent;
  if (kind.notFound == kNoRepeats) return Append(text);
  if (stored_ >= recent_.size() && recent_.size() < kMostRecent) RememberMore();
  const auto hash = static_cast<uint32_t>(std::hash<TextView>()(text));
  Recent& recent = recent_[hash & (recent_.size() - 1)];
  const bool found = recent.hash == hash && SameText(Get(recent.text), text);
  kind.notFound = found ? 0 : kind.notFound + 1;
  if (!found) recent = {hash, Append(text)};
  return recent.text;
}

void TextStore::RememberMore() {
  constexpr size_t kFirst = 256;
  std::vector<Recent> more(std::max(kFirst, recent_.size() * 4));
  for (const Recent& recent : recent_) {
    if (recent.text != StoredText()) more[recent.hash & (more.size() - 1)] = recent;
  }
  recent_ = std::move(more);
}

StoredText TextStore::Append(TextView text) {
  const bool isLong = text.size() >= kLong;
  const size_t size = text.size() + (isLong ? 3 : 1);
  if (used_ + size > kChunk) {
    const size_t first = chunks_.empty() ? 1 : 0;  // no text has the position 0
    const size_t chunks = (first + size + kChunk - 1) / kChunk;
    if (chunks_.size() + chunks > kChunk) throw std::length_error("TextStore");
    char16_t* block = blocks_.emplace_back(new char16_t[chunks * kChunk]).get();
    for (size_t i = 0; i < chunks; ++i) chunks_.push_back(block + i * kChunk);
    place_ = chunks_.size() - chunks;
    used_ = first;
  }
  const StoredText stored{static_cast<uint32_t>(place_ << kShift | used_)};
  char16_t* to = chunks_[place_] + used_;
  if (isLong) {
    *to++ = kLong;
    *to++ = static_cast<char16_t>(text.size() >> kShift);
  }
  *to++ = static_cast<char16_t>(text.size());
  std::copy(text.begin(), text.end(), to);
  ++stored_;
  // What is left of several chunks isn't used: a text begins in the first chunk of its block.
  used_ += size;
  return stored;
}

void TextStore::Clear() {
  recent_.clear();
  stored_ = 0;
  chunks_.clear();
  blocks_.clear();
  used_ = kChunk;
}

}  // namespace tavix
