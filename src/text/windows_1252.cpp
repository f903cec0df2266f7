#include "text/windows_1252.h"

#include <algorithm>
#include <array>

namespace tavix {
namespace {

// The characters of the bytes 0x80 to 0x9F. Every other byte is the character with the same number.
constexpr unsigned kFirst = 0x80;
constexpr std::array<char16_t, 32> kSpecial{
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  //
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,  //
    0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  //
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

}  // namespace

Text FromWindows1252(std::string_view bytes) {
  Text text;
  text.reserve(bytes.size());
  for (const char byte : bytes) {
    const auto code = static_cast<unsigned char>(byte);
    const unsigned special = code - kFirst;
    text += special < kSpecial.size() ? kSpecial[special] : static_cast<char16_t>(code);
  }
  return text;
}

std::optional<std::string> ToWindows1252(TextView text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (const char16_t c : text) {
    const auto* const special = std::find(kSpecial.begin(), kSpecial.end(), c);
    if (special != kSpecial.end()) {
      bytes += static_cast<char>(kFirst + static_cast<unsigned>(special - kSpecial.begin()));
    } else if (c < kFirst || (c >= kFirst + kSpecial.size() && c <= 0xFF)) {
      bytes += static_cast<char>(c);
    } else {
      return std::nullopt;
    }
  }
  return bytes;
}

}  // namespace tavix
