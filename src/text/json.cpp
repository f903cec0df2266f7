#include "text/json.h"

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

bool IsLead(char16_t unit) { return (unit & 0xFC00U) == 0xD800; }
bool IsTrail(char16_t unit) { return (unit & 0xFC00U) == 0xDC00; }

}  // namespace

void AppendJson(std::string& out, TextView text) {
  out += '"';
  for (size_t i = 0; i < text.size(); ++i) {
    const char16_t unit = text[i];
    const bool pair = IsLead(unit) && i + 1 < text.size() && IsTrail(text[i + 1]);
    const bool half = !pair && (IsLead(unit) || IsTrail(unit));
    if (half || unit < 0x20 || unit == u'"' || unit == u'\\') {
      AppendEscaped(out, unit);
    } else if (unit < 0x80) {
      out += static_cast<char>(unit);
    } else {
      out += ToUtf8(text.substr(i, pair ? 2 : 1));
      if (pair) ++i;
    }
  }
  out += '"';
}

}  // namespace tavix
