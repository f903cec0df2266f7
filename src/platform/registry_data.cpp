#include "platform/registry_data.h"

#include <bit>
#include <cstring>

namespace tavix::platform {
namespace {

static_assert(std::endian::native == std::endian::little, "UTF-16 and numbers are copied as they are");

Text ReadText(std::string_view bytes) {
  Text text(bytes.size() / 2, u'\0');
  if (!text.empty()) std::memcpy(text.data(), bytes.data(), text.size() * 2);
  text.resize(text.find_last_not_of(u'\0') + 1);
  return text;
}

template <class Number>
Text ReadNumber(std::string_view bytes) {
  Number number = 0;
  std::memcpy(&number, bytes.data(), sizeof(number));
  Text digits;
  do {
    digits.push_back(static_cast<char16_t>(u'0' + number % 10));
    number /= 10;
  } while (number != 0);
  return {digits.rbegin(), digits.rend()};
}

Text HexPairs(std::string_view bytes) {
  constexpr TextView kDigits = u"0123456789ABCDEF";
  Text pairs;
  pairs.reserve(bytes.size() * 3);
  for (const char c : bytes) {
    const auto byte = static_cast<unsigned char>(c);
    if (!pairs.empty()) pairs.push_back(u' ');
    pairs.push_back(kDigits[byte >> 4U]);
    pairs.push_back(kDigits[byte & 15U]);
  }
  return pairs;
}

}  // namespace

Text RenderData(uint32_t type, std::string_view bytes) {
  switch (static_cast<DataType>(type)) {
    case DataType::String:
    case DataType::ExpandString:
      return ReadText(bytes);
    case DataType::MultiString: {
      Text text = ReadText(bytes);
      for (char16_t& c : text) {
        if (c == u'\0') c = u' ';
      }
      return text;
    }
    case DataType::Number32:
      if (bytes.size() == sizeof(uint32_t)) return ReadNumber<uint32_t>(bytes);
      break;
    case DataType::Number64:
      if (bytes.size() == sizeof(uint64_t)) return ReadNumber<uint64_t>(bytes);
      break;
    default:
      break;
  }
  return HexPairs(bytes);
}

std::string StringData(TextView text) {
  std::string bytes((text.size() + 1) * 2, '\0');
  if (!text.empty()) std::memcpy(bytes.data(), text.data(), text.size() * 2);
  return bytes;
}

}  // namespace tavix::platform
