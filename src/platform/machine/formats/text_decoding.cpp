#include "platform/machine/formats/text_decoding.h"

#include <algorithm>
#include <cstring>

#include "text/utf8.h"

namespace tavix::machine {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kSwappedUtf16Mark = "\xFE\xFF";

Text ReadUtf16(std::string_view bytes) {
  Text text(bytes.size() / 2, u'\0');
  if (!text.empty()) std::memcpy(text.data(), bytes.data(), text.size() * 2);
  return text;
}

// Checks each line by itself: a line feed is never part of a longer UTF-8 sequence.
size_t FirstWrongLine(std::string_view bytes) {
  for (size_t line = 1;; ++line) {
    const size_t end = bytes.find('\n');
    if (end == std::string_view::npos || !FromUtf8(bytes.substr(0, end))) return line;
    bytes.remove_prefix(end + 1);
  }
}

}  // namespace

std::optional<Text> DecodeText(std::string_view bytes, TextError& error) {
  const bool swapped = bytes.starts_with(kSwappedUtf16Mark);
  if (swapped || bytes.starts_with(kUtf16Mark)) {
    bytes.remove_prefix(kUtf16Mark.size());
    Text text = ReadUtf16(bytes);
    if (swapped) {
      for (char16_t& c : text) c = static_cast<char16_t>(c << 8U | c >> 8U);
    }
    if (bytes.size() % 2 == 0) return text;
    error = {LineAt(text, text.size()), "the text is cut off in the middle of a UTF-16 character"};
    return std::nullopt;
  }
  if (bytes.starts_with(kUtf8Mark)) bytes.remove_prefix(kUtf8Mark.size());
  std::optional<Text> text = FromUtf8(bytes);
  if (!text) error = {FirstWrongLine(bytes), "bytes that are no UTF-8"};
  return text;
}

size_t LineAt(TextView text, size_t position) {
  const TextView before = text.substr(0, position);
  return static_cast<size_t>(std::count(before.begin(), before.end(), u'\n')) + 1;
}

std::string Quoted(TextView text) {
  constexpr size_t kMaxLength = 80;
  const bool cut = text.size() > kMaxLength;
  Text shown(text.substr(0, kMaxLength));
  for (size_t i = 0; i < shown.size(); ++i) {
    const auto isHalf = [&shown](size_t at, char16_t kind) {
      return at < shown.size() && (shown[at] & 0xFC00U) == kind;
    };
    if (isHalf(i, 0xD800) && isHalf(i + 1, 0xDC00)) {
      ++i;
    } else if (shown[i] < u' ' || shown[i] == 0x7F || isHalf(i, 0xD800) || isHalf(i, 0xDC00)) {
      shown[i] = u'?';
    }
  }
  return "'" + ToUtf8(shown) + (cut ? "...'" : "'");
}

}  // namespace tavix::machine
