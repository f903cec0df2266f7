#include "text/letter_case.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

TEST(ToUpper, KnowsLettersOutsideAscii) {
  EXPECT_EQ(ToUpper(u"straße äöü éñ жя σς ӱ ǆ"), u"STRAßE ÄÖÜ ÉÑ ЖЯ ΣΣ Ӱ Ǆ");
}

TEST(ToUpper, LeavesLookAlikesAlone) {
  for (const char16_t c : {u'µ', u'ı', u'ſ', u'ß', u'_', u'1', u'\xD800', u'ა'}) EXPECT_EQ(ToUpper(c), c);
}

TEST(ToUpper, IsItsOwnCapital) {
  for (unsigned c = 0; c < 0x10000; ++c) {
    const char16_t upper = ToUpper(static_cast<char16_t>(c));
    ASSERT_EQ(ToUpper(upper), upper) << c;
  }
}

TEST(ToLower, KnowsLettersOutsideAscii) {
  EXPECT_EQ(ToLower(u"*.TMP ÄÖÜ ÉÑ ЖЯ ΣΑΣ Ӱ Ǆ @[`{ß"), u"*.tmp äöü éñ жя σασ ӱ ǆ @[`{ß");
}

TEST(ToLower, LeadsBackToTheCapitalAndNowhereElse) {
  for (unsigned c = 0; c < 0x10000; ++c) {
    const Text capital(1, ToUpper(static_cast<char16_t>(c)));
    ASSERT_EQ(ToUpper(ToLower(capital)), capital) << c;
    ASSERT_EQ(ToLower(ToLower(capital)), ToLower(capital)) << c;
  }
}

TEST(CompareIgnoringCase, OrdersByTheCapitals) {
  EXPECT_EQ(CompareIgnoringCase(u"Abc", u"aBC"), 0);
  EXPECT_LT(CompareIgnoringCase(u"ab", u"ABC"), 0);
  EXPECT_GT(CompareIgnoringCase(u"abc", u"AB"), 0);
  // The underscore sorts after Z and before a, so this shows that capitals are compared.
  EXPECT_GT(CompareIgnoringCase(u"_x", u"zx"), 0);
  EXPECT_TRUE(EqualIgnoringCase(u"ÄRGER", u"ärger"));
  EXPECT_FALSE(EqualIgnoringCase(u"a", u"ab"));
}

}  // namespace
}  // namespace tavix
