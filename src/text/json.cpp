#include "text/json.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "text/utf8.h"

namespace tavix {
namespace {

constexpr size_t kLongestEscape = 6;  // bytes

// Writes an escaped character and returns the end of it.
char* PutEscaped(char* out, char16_t unit) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  *out++ = '\\';
  switch (unit) {
    case u'"':
    case u'\\':
      *out++ = static_cast<char>(unit);
      return out;
    case u'\n':
      *out++ = 'n';
      return out;
    case u'\r':
      *out++ = 'r';
      return out;
    case u'\t':
      *out++ = 't';
      return out;
    default:
      *out++ = 'u';
      for (int shift = 12; shift >= 0; shift -= 4) *out++ = kDigits[unit >> shift & 15];
      return out;
  }
}

constexpr std::array<bool, 128> kPlain = [] {
  std::array<bool, 128> plain{};
  for (size_t c = 0x20; c < plain.size(); ++c) plain[c] = c != '"' && c != '\\';
  return plain;
}();

bool IsLead(char16_t unit) { return (unit & 0xFC00U) == 0xD800; }
bool IsTrail(char16_t unit) { return (unit & 0xFC00U) == 0xDC00; }

}  // namespace

void AppendJson(std::string& out, TextView text) {
  const size_t before = out.size();
  out.resize_and_overwrite(before + kLongestEscape * text.size() + 2, [&](char* bytes, size_t) {
    char* end = bytes + before;
    *end++ = '"';
    for (size_t i = 0; i < text.size(); ++i) {
      const char16_t unit = text[i];
      const bool pair = IsLead(unit) && i + 1 < text.size() && IsTrail(text[i + 1]);
      if (unit < kPlain.size() && kPlain[unit]) {
        *end++ = static_cast<char>(unit);
      } else if (unit < kPlain.size() || (!pair && (IsLead(unit) || IsTrail(unit)))) {
        end = PutEscaped(end, unit);
      } else {
        end = std::ranges::copy(ToUtf8(text.substr(i, pair ? 2 : 1)), end).out;
        if (pair) ++i;
      }
    }
    *end++ = '"';
    return end - bytes;
  });
}

}  // namespace tavix
