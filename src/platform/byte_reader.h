#pragma once

#include <cstdint>
#include <string_view>

#include "text/text.h"
#include "text/windows_1252.h"

namespace tavix::platform {

// Reads text of one byte a character in the code page of the machine that wrote it.
using NarrowDecoder = Text (*)(std::string_view bytes);

// A piece of a binary file. Any offset may be read: bytes after the end are zero, and a text without its
// final zero is empty.
class ByteReader {
 public:
  explicit ByteReader(std::string_view bytes, NarrowDecoder decode = FromWindows1252)
      : bytes_(bytes), decode_(decode) {}

  size_t Size() const { return bytes_.size(); }
  std::string_view Bytes() const { return bytes_; }
  bool Has(size_t at, size_t size) const { return at <= bytes_.size() && size <= bytes_.size() - at; }

  // Little-endian numbers.
  uint8_t U8(size_t at) const { return at < bytes_.size() ? static_cast<uint8_t>(bytes_[at]) : uint8_t{0}; }
  uint16_t U16(size_t at) const { return static_cast<uint16_t>(U8(at) | U8(at + 1) << 8U); }
  uint32_t U32(size_t at) const { return U16(at) | static_cast<uint32_t>(U16(at + 2)) << 16U; }

  // The part that begins at an offset. Shorter than `size` where the bytes end first.
  ByteReader Part(size_t at, size_t size = std::string_view::npos) const {
    return ByteReader(at < bytes_.size() ? bytes_.substr(at, size) : std::string_view(), decode_);
  }

  // Text up to a zero byte, or a zero of two bytes. Empty when that zero is missing.
  Text NarrowText(size_t at) const {
    const std::string_view rest = Part(at).Bytes();
    const size_t end = rest.find('\0');
    return end == std::string_view::npos ? Text() : decode_(rest.substr(0, end));
  }
  Text WideText(size_t at) const {
    Text text;
    for (; Has(at, 2); at += 2) {
      const uint16_t c = U16(at);
      if (c == 0) return text;
      text += static_cast<char16_t>(c);
    }
    return {};
  }

 private:
  std::string_view bytes_;
  NarrowDecoder decode_;
};

}  // namespace tavix::platform
