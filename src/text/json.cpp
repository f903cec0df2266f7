#include "text/json.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "text/utf8.h"

namespace tavix {
namespace {

void AppendEscaped(std::string& out, char16_t unit) {
  switch (unit) {
    case u'"':
      out += "\\\"";
      return;
    case u'\\':
      out += "\\\\";
      return;
    case u'\n':
      out += "\\n";
      return;
    case u'\r':
      out += "\\r";
      return;
    case u'\t':
      out += "\\t";
      return;
    default:
      char code[8];
      std::snprintf(code, sizeof code, "\\u%04x", static_cast<unsigned>(unit));
      out += code;
  }
}

constexpr std::array<bool, 128> kPlain = [] {
  std::array<bool, 128> plain{};
  for (size_t c = 0x20; c < plain.size(); ++c) plain[c] = c != '"' && c != '\\';
  return plain;
}();

// The number of characters at the start of a text that stand for themselves in one byte.
size_t CountPlain(TextView text) {
  const auto end = std::ranges::find_if(text, [](char16_t c) { return c >= kPlain.size() || !kPlain[c]; });
  return static_cast<size_t>(end - text.begin());
}

bool IsLead(char16_t unit) { return (unit & 0xFC00U) == 0xD800; }
bool IsTrail(char16_t unit) { return (unit & 0xFC00U) == 0xDC00; }

}  // namespace

void AppendJson(std::string& out, TextView text) {
  out += '"';
  for (size_t i = 0; i < text.size(); ++i) {
    // Most characters stay as they are. They are appended in runs.
    const size_t plain = CountPlain(text.substr(i));
    out.append(text.begin() + i, text.begin() + i + plain);
    i += plain;
    if (i == text.size()) break;
    const char16_t unit = text[i];
    const bool pair = IsLead(unit) && i + 1 < text.size() && IsTrail(text[i + 1]);
    const bool half = !pair && (IsLead(unit) || IsTrail(unit));
    if (half || unit < 0x80) {
      AppendEscaped(out, unit);
    } else {
      out += ToUtf8(text.substr(i, pair ? 2 : 1));
      if (pair) ++i;
    }
  }
  out += '"';
}

}  // namespace tavix
