#include "text/text.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

TEST(Split, EmptyTextHasNoPieces) { EXPECT_TRUE(Split(u"", u"|").empty()); }

TEST(Split, KeepsEmptyPiecesAtBothEnds) {
  EXPECT_EQ(Split(u"|a|b|", u"|"), (std::vector<TextView>{u"", u"a", u"b", u""}));
}

TEST(Split, TextWithoutTheSeparatorIsOnePiece) {
  EXPECT_EQ(Split(u"abc", u"*IS*"), std::vector<TextView>{u"abc"});
}

TEST(Split, CutsFromTheLeftWhereSeparatorsOverlap) {
  EXPECT_EQ(Split(u"a:::b", u"::"), (std::vector<TextView>{u"a", u":b"}));
}

TEST(Trim, TakesBlanksOnly) {
  EXPECT_EQ(Trim(u"  a b  "), u"a b");
  EXPECT_EQ(Trim(u"\t a \n"), u"\t a \n");
  EXPECT_EQ(Trim(u"   "), u"");
  EXPECT_EQ(Trim(u""), u"");
}

TEST(BlankOut, PutsABlankForEachOfTheCharactersAndTrims) {
  EXPECT_EQ(BlankOut(u"|a/b||c|", u"/|"), u"a b  c");
  EXPECT_EQ(BlankOut(u"a\tb", u"/|"), u"a\tb");
  EXPECT_EQ(BlankOut(u"//", u"/|"), u"");
}

TEST(Concat, JoinsWhatItGets) {
  EXPECT_EQ(Concat(u"a", Text(u"b"), TextView(u"c")), u"abc");
  EXPECT_EQ(ToText(-42), u"-42");
}

}  // namespace
}  // namespace tavix
