#include "window/win32/letter_search.h"

#include <algorithm>

#include "text/letter_case.h"

namespace tavix::win32 {
namespace {

constexpr DWORD kPause = 1000;  // milliseconds; the next letter begins a new word

}  // namespace

int FindRow(const SearchedRows& rows, int start, TextView word, bool whole, bool wraps) {
  const auto fits = [&](TextView text) {
    return EqualIgnoringCase(whole ? text : text.substr(0, word.size()), word);
  };
  const int first = std::clamp(start, 0, rows.count);
  for (int row = first; row < rows.count; ++row) {
    if (fits(rows.textOf(row))) return row;
  }
  for (int row = 0; wraps && row < first; ++row) {
    if (fits(rows.textOf(row))) return row;
  }
  return -1;
}

void LetterSearch::KeyPressed(WPARAM key, DWORD time) {
  keyTime_ = time;
  if (key >= VK_PRIOR && key <= VK_DOWN) word_.clear();
}

bool LetterSearch::IsRunning(HWND control, DWORD time) const {
  return control == control_ && !word_.empty() && time - letterTime_ < kPause;
}

int LetterSearch::Type(HWND control, char16_t letter, const SearchedRows& rows) {
  if (!IsRunning(control, keyTime_)) word_.clear();
  control_ = control;
  letterTime_ = keyTime_;
  word_ += ToUpper(letter);
  // A word that has begun may still fit the row that its first letters led to.
  const int next = rows.focused + 1;
  const int found = FindRow(rows, word_.size() > 1 ? rows.focused : next, word_, false, true);
  const bool repeated = word_.find_first_not_of(word_[0]) == Text::npos;
  return found < 0 && repeated ? FindRow(rows, next, word_.substr(0, 1), false, true) : found;
}

}  // namespace tavix::win32
