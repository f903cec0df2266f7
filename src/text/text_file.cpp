#include "text/text_file.h"

#include <algorithm>

#include "text/utf8.h"
#include "text/windows_1252.h"

namespace tavix {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";

Text FromUtf16(std::string_view bytes) {
  Text text;
  text.reserve(bytes.size() / 2);
  for (size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const auto low = static_cast<unsigned char>(bytes[i]);
    const auto high = static_cast<unsigned char>(bytes[i + 1]);
    text += static_cast<char16_t>(low | high << 8U);
  }
  return text;
}

std::string ToUtf16(TextView text) {
  std::string bytes(kUtf16Mark);
  bytes.reserve(kUtf16Mark.size() + 2 * text.size());
  for (const char16_t c : text) {
    bytes += static_cast<char>(c);
    bytes += static_cast<char>(c >> 8U);
  }
  return bytes;
}

std::string ToMarkedUtf8(TextView text) { return std::string(kUtf8Mark) + ToUtf8(text); }

}  // namespace

FileText DecodeTextFile(std::string_view bytes) {
  if (bytes.starts_with(kUtf16Mark)) {
    return {FromUtf16(bytes.substr(kUtf16Mark.size())), TextEncoding::Utf16WithMark};
  }
  const bool mark = bytes.starts_with(kUtf8Mark);
  std::optional<Text> text = FromUtf8(mark ? bytes.substr(kUtf8Mark.size()) : bytes);
  if (text) return {std::move(*text), mark ? TextEncoding::Utf8WithMark : TextEncoding::Utf8};
  return {FromWindows1252(bytes), TextEncoding::Windows1252};
}

std::string EncodeTextFile(const FileText& file) {
  switch (file.encoding) {
    case TextEncoding::Utf8:
      if (file.text.starts_with(u'\uFEFF')) break;
      return ToUtf8(file.text);
    case TextEncoding::Utf16WithMark:
      return ToUtf16(file.text);
    case TextEncoding::Windows1252:
      if (std::optional<std::string> bytes = ToWindows1252(file.text)) {
        if (DecodeTextFile(*bytes).text == file.text) return std::move(*bytes);
      }
      break;
    case TextEncoding::Utf8WithMark:
      break;
  }
  return ToMarkedUtf8(file.text);
}

std::vector<Text> TextLines(TextView text) {
  std::vector<Text> lines;
  while (!text.empty()) {
    TextView line = text.substr(0, text.find(u'\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    if (line.ends_with(u'\r')) line.remove_suffix(1);
    lines.emplace_back(line);
  }
  return lines;
}

}  // namespace tavix
