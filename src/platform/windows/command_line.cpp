#include "platform/windows/command_line.h"

#include <algorithm>
#include <cstddef>

namespace tavix::windows {
namespace {

bool IsLetter(char16_t c) { return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z'); }

Command SplitAt(TextView text, size_t cut) {
  return {Text(text.substr(0, cut)), Text(cut < text.size() ? Trim(text.substr(cut)) : TextView())};
}

}  // namespace

bool IsAddress(TextView text) {
  const size_t colon = text.find(u':');
  if (colon == TextView::npos || colon < 2 || !IsLetter(text[0])) return false;
  return std::all_of(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(colon), [](char16_t c) {
    return IsLetter(c) || (c >= u'0' && c <= u'9') || c == u'+' || c == u'-' || c == u'.';
  });
}

Command SplitCommand(TextView text, const std::function<bool(TextView path)>& isThere) {
  text = Trim(text);
  if (text.starts_with(u'"')) {
    const size_t close = text.find(u'"', 1);
    if (close == TextView::npos) return {Text(text.substr(1)), {}};
    return {Text(text.substr(1, close - 1)), Text(Trim(text.substr(close + 1)))};
  }
  if (IsAddress(text) || isThere(text)) return {Text(text), {}};
  for (size_t cut = text.find(u' '); cut != TextView::npos; cut = text.find(u' ', cut + 1)) {
    const TextView program = text.substr(0, cut);
    if (isThere(program) || isThere(Concat(program, u".exe"))) return SplitAt(text, cut);
  }
  return SplitAt(text, std::min(text.find(u' '), text.size()));
}

}  // namespace tavix::windows
