#include "export/name_mask.h"

#include <algorithm>

#include "export/kept_words.h"
#include "text/letter_case.h"

namespace tavix::exporting {
namespace {

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

// Everything beyond ASCII counts as a letter.
bool IsWordCharacter(char16_t c) {
  return IsDigit(c) || (c >= u'A' && c <= u'Z') || (c >= u'a' && c <= u'z') || c >= 0x80;
}

// The length of a class identifier in braces at the beginning of a text; 0 if there is none.
size_t ClassIdentifierLength(TextView text) {
  constexpr TextView kForm = u"{hhhhhhhh-hhhh-hhhh-hhhh-hhhhhhhhhhhh}";
  const bool fits = text.size() >= kForm.size() &&
                    std::ranges::equal(text.substr(0, kForm.size()), kForm, [](char16_t c, char16_t form) {
                      if (form != u'h') return c == form;
                      const char16_t capital = ToUpper(c);
                      return IsDigit(c) || (capital >= u'A' && capital <= u'F');
                    });
  return fits ? kForm.size() : 0;
}

// A generator of numbers whose sequence depends on its seed alone.
class Numbers {
 public:
  explicit Numbers(uint64_t seed) : state_(seed) {}
  uint64_t Next() {
    state_ += 0x9E3779B97F4A7C15U;
    uint64_t mixed = state_;
    mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
    mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
    return mixed ^ (mixed >> 31U);
  }

 private:
  uint64_t state_;
};

uint64_t Mixed(uint64_t secret, TextView word) {
  uint64_t mixed = secret;
  for (const char16_t c : word) mixed = Numbers(mixed ^ c).Next();
  return mixed;
}

}  // namespace

NameMask::NameMask(uint64_t secret) : secret_(secret) { Keep(kKeptWords); }

void NameMask::Keep(TextView text) {
  for (size_t at = 0; at < text.size();) {
    if (!IsWordCharacter(text[at])) {
      ++at;
      continue;
    }
    size_t end = at;
    while (end < text.size() && IsWordCharacter(text[end])) ++end;
    Text word = ToUpper(text.substr(at, end - at));
    // A word that was to become this one becomes another.
    if (const auto taken = meaning_.find(word); taken != meaning_.end()) {
      madeUp_.erase(taken->second);
      meaning_.erase(taken);
    }
    kept_.insert(std::move(word));
    at = end;
  }
}

Text NameMask::Apply(TextView text) const {
  Text masked(text);
  for (size_t at = 0; at < text.size();) {
    if (const size_t length = ClassIdentifierLength(text.substr(at)); length > 0) {
      at += length;
      continue;
    }
    if (!IsWordCharacter(text[at])) {
      ++at;
      continue;
    }
    size_t end = at;
    while (end < text.size() && IsWordCharacter(text[end])) ++end;
    const TextView word = text.substr(at, end - at);
    const bool isNumber = std::ranges::all_of(word, IsDigit);
    if (word.size() > 1 && !isNumber && !kept_.contains(word)) {
      const Text& madeUp = MadeUp(ToUpper(word));
      for (size_t i = 0; i < word.size(); ++i) {
        const bool isSmall = ToUpper(word[i]) != word[i] && !IsDigit(madeUp[i]);
        masked[at + i] = isSmall ? static_cast<char16_t>(madeUp[i] - u'A' + u'a') : madeUp[i];
      }
    }
    at = end;
  }
  return masked;
}

// Nothing fits any more when nearly all words of a short form are taken; then a word stays as it is.
const Text& NameMask::MadeUp(const Text& capitals) const {
  const auto known = madeUp_.find(capitals);
  if (known != madeUp_.end()) return known->second;
  Numbers numbers(Mixed(secret_, capitals));
  Text madeUp = capitals;
  for (int attempt = 0; attempt < 2000; ++attempt) {
    for (char16_t& c : madeUp)
      c = IsDigit(c) ? static_cast<char16_t>(u'0' + numbers.Next() % 10)
                     : static_cast<char16_t>(u'A' + numbers.Next() % 26);
    if (madeUp != capitals && !kept_.contains(madeUp) && !meaning_.contains(madeUp)) break;
  }
  if (kept_.contains(madeUp) || meaning_.contains(madeUp)) madeUp = capitals;
  meaning_[madeUp] = capitals;
  return madeUp_[capitals] = std::move(madeUp);
}

}  // namespace tavix::exporting
