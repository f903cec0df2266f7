#include "text/windows_1252.h"
#include "support/case.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

TEST(Windows1252, EveryByteIsOneCharacterAndComesBack) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  const Text text = FromWindows1252(bytes);
  EXPECT_EQ(text.size(), 256U);
  EXPECT_EQ(ToWindows1252(text), bytes);
}

TEST(Windows1252, ReadsTheCharactersOfTheCodePage) {
  EXPECT_EQ(FromWindows1252("A\x7F\x80\x85\x99\x9F\xA0\xE9\xFF"),
            u"A\u007F\u20AC\u2026\u2122\u0178\u00A0\u00E9\u00FF");
  EXPECT_EQ(FromWindows1252("\x81"), Text(1, char16_t{0x81}));
  EXPECT_EQ(FromWindows1252({}), u"");
}

TEST(Windows1252, RefusesCharactersThatArentInIt) {
  for (const TextView text : {u"\u0100", u"a\u8BF4", u"\u02C7", u"\xD83D\xDE00"}) {
    SCOPED_TRACE(Case(text));
    EXPECT_FALSE(ToWindows1252(text));
  }
  EXPECT_FALSE(ToWindows1252(Text(1, char16_t{0x80})));
}

}  // namespace
}  // namespace tavix
