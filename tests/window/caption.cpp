#include "window/caption.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

TEST(PlainCaption, TakesTheMarksOfLettersAway) {
  struct {
    TextView caption, plain;
  } constexpr kCases[] = {
      {u"", u""},
      {u"Plain", u"Plain"},
      {u"Sa&ve", u"Save"},
      {u"Save && Close", u"Save & Close"},
      {u"&&&Both", u"&Both"},
      {u"At the end&", u"At the end"},
  };
  for (const auto& c : kCases) EXPECT_EQ(PlainCaption(c.caption), c.plain);
}

TEST(MarkedLetter, IsTheCapitalAfterTheFirstSingleAmpersand) {
  EXPECT_EQ(MarkedLetter(u"&Pattern:"), u'P');
  EXPECT_EQ(MarkedLetter(u"Save && &add"), u'A');
  EXPECT_EQ(MarkedLetter(u"&\u00fcber"), u'\u00dc');
  for (const TextView without : {u"", u"&", u"R&&D", u"Pattern"}) EXPECT_EQ(MarkedLetter(without), u'\0');
}

}  // namespace
}  // namespace tavix
