#include "text/utf8.h"

#include <algorithm>

namespace tavix {
namespace {

// The length of the sequence that a lead byte starts, the bits in that byte, and the smallest code point that
// needs this length.
struct Lead {
  size_t length;
  char32_t bits;
  char32_t smallest;
};

Lead ReadLead(unsigned char byte) {
  if (byte < 0x80) return {1, byte, 0};
  if (byte >= 0xC0 && byte < 0xE0) return {2, byte & 0x1FU, 0x80};
  if (byte >= 0xE0 && byte < 0xF0) return {3, byte & 0x0FU, 0x800};
  if (byte >= 0xF0 && byte < 0xF8) return {4, byte & 0x07U, 0x10000};
  return {0, 0, 0};
}

}  // namespace

std::optional<Text> FromUtf8(std::string_view bytes) {
  // Fast way: most texts are ASCII, or begin with it.
  const auto* const ascii = std::find_if(bytes.begin(), bytes.end(), [](char c) { return (c & 0x80) != 0; });
  Text text(bytes.begin(), ascii);
  text.reserve(bytes.size());
  for (size_t at = text.size(); at < bytes.size();) {
    Lead lead = ReadLead(static_cast<unsigned char>(bytes[at]));
    if (lead.length == 0 || lead.length > bytes.size() - at) return std::nullopt;
    char32_t point = lead.bits;
    for (size_t i = 1; i < lead.length; ++i) {
      const auto next = static_cast<unsigned char>(bytes[at + i]);
      if ((next & 0xC0U) != 0x80) return std::nullopt;
      point = point << 6U | (next & 0x3FU);
    }
    if (point < lead.smallest || point > 0x10FFFF) return std::nullopt;
    if (point < 0x10000) {
      text.push_back(static_cast<char16_t>(point));
    } else {
      text.push_back(static_cast<char16_t>(0xD7C0 + (point >> 10U)));
      text.push_back(static_cast<char16_t>(0xDC00 | (point & 0x3FFU)));
    }
    at += lead.length;
  }
  return text;
}

std::string ToUtf8(TextView text) {
  std::string bytes;
  bytes.reserve(text.size());
  const auto put = [&bytes](char32_t byte) { bytes.push_back(static_cast<char>(byte)); };
  for (size_t i = 0; i < text.size(); ++i) {
    char32_t point = text[i];
    const bool pair = (point & 0xFC00U) == 0xD800 && i + 1 < text.size() && (text[i + 1] & 0xFC00U) == 0xDC00;
    if (pair) point = 0x10000 + ((point & 0x3FFU) << 10U) + (text[++i] & 0x3FFU);
    if (point < 0x80) {
      put(point);
    } else if (point < 0x800) {
      put(0xC0 | point >> 6U);
      put(0x80 | (point & 0x3FU));
    } else if (point < 0x10000) {
      put(0xE0 | point >> 12U);
      put(0x80 | (point >> 6U & 0x3FU));
      put(0x80 | (point & 0x3FU));
    } else {
      put(0xF0 | point >> 18U);
      put(0x80 | (point >> 12U & 0x3FU));
      put(0x80 | (point >> 6U & 0x3FU));
      put(0x80 | (point & 0x3FU));
    }
  }
  return bytes;
}

}  // namespace tavix
