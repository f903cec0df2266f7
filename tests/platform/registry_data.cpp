#include "platform/registry_data.h"

#include <gtest/gtest.h>

namespace tavix::platform {
namespace {

using namespace std::string_view_literals;

struct Case {
  uint32_t type;
  std::string_view bytes;
  TextView text;
};

TEST(RenderData, ShowsEachTypeAsText) {
  const Case kCases[] = {
      {1, ""sv, u""},
      {1, "a\0\0\0"sv, u"a"},
      {1, "a\0"sv, u"a"},
      {1, "a\0\0\0\0\0"sv, u"a"},
      {1, "a\0b"sv, u"a"},
      {1, "\0\0a\0\0\0"sv, TextView(u"\0a", 2)},
      {1, "x"sv, u""},
      {2, "%\0a\0%\0\0\0"sv, u"%a%"},
      {7, ""sv, u""},
      {7, "\0\0"sv, u""},
      {7, "a\0\0\0b\0\0\0\0\0"sv, u"a b"},
      {7, "a\0\0\0b\0"sv, u"a b"},
      {7, "a\0\0\0\0\0b\0\0\0\0\0"sv, u"a  b"},
      {4, "\0\0\0\0"sv, u"0"},
      {4, "\xFF\xFF\xFF\xFF"sv, u"4294967295"},
      {4, "\x01\x02"sv, u"01 02"},
      {4, "\x01\x02\x03\x04\x05"sv, u"01 02 03 04 05"},
      {4, ""sv, u""},
      {11, "\xFF\xFF\xFF\xFF\xFF\xFF\xFF\xFF"sv, u"18446744073709551615"},
      {11, "\0\0\0\0\x01\0\0\0"sv, u"4294967296"},
      {11, "\x0A\0\0\0"sv, u"0A 00 00 00"},
      {5, "\0\0\0\x01"sv, u"00 00 00 01"},
      {0, ""sv, u""},
      {3, "\xAB"sv, u"AB"},
      {3, "\xAB\xCD"sv, u"AB CD"},
      {6, "a\0"sv, u"61 00"},
      {0xFFFF0012, "a\0\0\0"sv, u"61 00 00 00"},
  };
  for (const Case& c : kCases) {
    EXPECT_EQ(RenderData(c.type, c.bytes), c.text) << c.type << " of " << c.bytes.size() << " bytes";
  }
}

TEST(StringData, EndsInOneTerminator) {
  EXPECT_EQ(StringData(u""), "\0\0"sv);
  EXPECT_EQ(StringData(u"aé"), "a\0\xE9\0\0\0"sv);
}

}  // namespace
}  // namespace tavix::platform
