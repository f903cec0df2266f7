#include "text/pattern.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

struct Case {
  const char16_t* text;
  const char16_t* pattern;
  bool matches;
};

TEST(MatchesPattern, Table) {
  const Case table[] = {
      {u"", u"", true},
      {u"", u"*", true},
      {u"", u"?", false},
      {u"abc", u"abc", true},
      {u"abc", u"ABC", false},
      {u"abc", u"a?c", true},
      {u"abc", u"a*", true},
      {u"abc", u"*c", true},
      {u"abc", u"*b", false},
      {u"aXbXc", u"a*b*c", true},
      {u"aab", u"*ab", true},
      {u"a1", u"a#", true},
      {u"ax", u"a#", false},
      {u"b", u"[a-c]", true},
      {u"d", u"[a-c]", false},
      {u"d", u"[!a-c]", true},
      {u"-", u"[a-]", true},
      {u"*", u"[*]", true},
      {u"x", u"[*]", false},
      {u"[", u"[[]", true},
      {u"!", u"[!]", true},
      {u"ab", u"a[]b", true},
      {u"]", u"]", true},
      {u"a", u"[a", false},
      {u"[a", u"[a", false},
      {u"a", u"*[", false},
      {u"*NDS*C:\\x", u"?NDS?*", true},
      {u"name*NDS*C:\\x", u"?NDS?*", false},
      {u"*NDS*", u"?NDS?*", true},
  };
  for (const Case& row : table) {
    EXPECT_EQ(MatchesPattern(row.text, row.pattern), row.matches) << "row " << &row - table;
  }
}

TEST(MatchesPattern, ManyStarsOverALongTextEndSoon) {
  const Text text(4000, u'a');
  EXPECT_FALSE(MatchesPattern(text, u"*a*a*a*a*a*a*a*a*b"));
  EXPECT_TRUE(MatchesPattern(text, u"*a*a*a*a*a*a*a*a*"));
}

}  // namespace
}  // namespace tavix
