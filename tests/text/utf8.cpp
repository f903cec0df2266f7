#include "text/utf8.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

TEST(Utf8, GoesThereAndBack) {
  for (const Text& text : {Text(u""), Text(u"abc"), Text(u"\u00E4\u20AC\u4E16"), Text(u"\U0001F600x"),
                           Text(u"\uFFFF\0z", 3), Text(u"\xD800"), Text(u"a\xDC00\xD800")}) {
    EXPECT_EQ(FromUtf8(ToUtf8(text)), text);
  }
  EXPECT_EQ(ToUtf8(u"\u20AC"), "\xE2\x82\xAC");
  EXPECT_EQ(ToUtf8(u"\U0001F600"), "\xF0\x9F\x98\x80");
}

TEST(Utf8, RefusesWhatIsNone) {
  for (const std::string bytes :
       {"\x80", "\xC3", "\xE2\x82", "\xC0\x80", "\xE0\x80\x80", "\xF0\x80\x80\x80", "\xF4\x90\x80\x80",
        "\xFF", "\xF8\x88\x80\x80\x80", "a\xC3(", "\xF0\x9F\x98"}) {
    EXPECT_EQ(FromUtf8(bytes), std::nullopt);
  }
}

}  // namespace
}  // namespace tavix
