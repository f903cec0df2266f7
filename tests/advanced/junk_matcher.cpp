#include "advanced/junk_matcher.h"

#include "advanced/advanced_test.h"
#include "junk/built_in_types.h"
#include "junk/junk_definitions.h"
#include "junk/junk_names.h"
#include "text/letter_case.h"
#include "text/pattern.h"

namespace tavix::mdlPubSelf {
namespace {

using JunkMatching = AdvancedTest;

TEST_F(JunkMatching, EachBuiltInPatternListsAndConfirmsTheNamesThatFit) {
  ASSERT_EQ(std::size(kBuiltInJunkTypes), 56U);
  EXPECT_GT(std::size(kJunkNames), 400U);
  for (size_t i = 0; i < 56; ++i) {
    const TextView pattern = kBuiltInJunkTypes[i].pattern;
    const FilePatterns list(pattern);
    int listed = 0;
    for (const JunkName& junk : kJunkNames) {
      const bool fits = (junk.listed >> i & 1) != 0;
      listed += fits ? 1 : 0;
      EXPECT_EQ(list.Match(junk.name), fits) << Narrow(pattern) << " lists " << Narrow(junk.name);
      EXPECT_EQ(MatchesPattern(ToLower(junk.name), ToLower(pattern)), (junk.confirmed >> i & 1) != 0)
          << Narrow(pattern) << " confirms " << Narrow(junk.name);
    }
    EXPECT_GT(listed, 0) << Narrow(pattern);
  }
}

TEST_F(JunkMatching, AScanHasARowForEachListThatShowsAConfirmedName) {
  int expected = 0;
  for (const JunkName& junk : kJunkNames) {
    const Text folder = Concat(u"C:\\", ToText(expected), u" ", ToText(junk.name.size()));
    AddFile(Concat(folder, u"\\", junk.name));
    const auto rows = Walk(folder, u"|Junk Files|");
    ASSERT_EQ(rows, std::vector<RowFields>(static_cast<size_t>(junk.rows),
                                           FileRow(u"Junk File", folder, junk.name)))
        << Narrow(junk.name);
    machine.files.DeleteFolder(folder, true);
    expected += junk.rows;
  }
  EXPECT_GT(expected, 200);
}

TEST_F(JunkMatching, TheListsAreTakenOverAnewWhenTheyHaveChanged) {
  JunkMatcher matcher;
  matcher.Update();
  ASSERT_EQ(matcher.Lists().size(), 2U);
  EXPECT_TRUE(matcher.IsConfirmed(u"a.TMP"));
  JunkPatternChunks = {u"*.ABC"};
  JunkTypes = {u"Mine|*.[A-C]BC|Y|Y|U", u"", u"one field"};
  matcher.Update();
  ASSERT_EQ(matcher.Lists().size(), 1U);
  EXPECT_EQ(matcher.Patterns(0), u"*.ABC");
  EXPECT_TRUE(matcher.Lists()[0].Match(u"x.abc"));
  EXPECT_TRUE(matcher.IsConfirmed(u"x.bbc"));
  EXPECT_FALSE(matcher.IsConfirmed(u"x.dbc"));
  EXPECT_FALSE(matcher.IsConfirmed(u"a.tmp"));
  EXPECT_FALSE(matcher.IsConfirmed(u"")) << "a type without a pattern confirms nothing";
}

TEST_F(JunkMatching, NamesAreComparedInLowerCase) {
  JunkPatternChunks = {u"*"};
  const struct {
    TextView pattern, name;
    bool fits;
  } table[] = {
      {u"*.TMP", u"a.tmp", true},
      {u"\u00C4*", u"\u00E4.x", true},
      {u"\u0434?", u"\u0414\u0414", true},
      {u"[A-Z]*", u"q", true},
      {u"[^-a]", u"_", true},  // between the circumflex and the small letter
      {u"[^-a]", u"B", false},
      {u"#*", u"1x", true},
      {u"#*", u"x1", false},
  };
  for (const auto& row : table) {
    JunkTypes = {Concat(u"d|", row.pattern, u"|Y|Y|U")};
    JunkMatcher matcher;
    matcher.Update();
    EXPECT_EQ(matcher.IsConfirmed(row.name), row.fits) << Narrow(row.pattern) << ' ' << Narrow(row.name);
  }
}

}  // namespace
}  // namespace tavix::mdlPubSelf
