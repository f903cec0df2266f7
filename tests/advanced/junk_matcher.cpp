#include "advanced/junk_matcher.h"

#include <algorithm>
#include <cstdlib>
#include <random>

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
  ++JunkListsNumber;
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

// The rule of FilePatterns for one pattern, tried in every way.
bool FitsPlainly(TextView name, TextView pattern) {
  if (pattern.empty()) return name.empty();
  if (pattern[0] == u'*') {
    return FitsPlainly(name, pattern.substr(1)) || (!name.empty() && FitsPlainly(name.substr(1), pattern));
  }
  if (pattern[0] == u'?') {
    const bool skips = name.empty() || name[0] == u'.';
    return FitsPlainly(skips ? name : name.substr(1), pattern.substr(1));
  }
  return !name.empty() && name[0] == pattern[0] && FitsPlainly(name.substr(1), pattern.substr(1));
}

bool IsListedPlainly(TextView capitals, TextView patterns) {
  for (const TextView piece : Split(patterns, u";")) {
    Text pattern(Trim(piece));
    if (pattern.empty()) continue;
    if (pattern == u"*.*") pattern = u"*";
    const bool noDot = pattern.back() == u'.';
    if (noDot) pattern.pop_back();
    if ((!noDot || !capitals.contains(u'.')) && FitsPlainly(capitals, ToUpper(pattern))) return true;
  }
  return false;
}

// Makes names and patterns that often fit, with letters that differ only in case, also those that don't
// return to themselves from capitals to small letters.
class RandomNames {
 public:
  size_t Below(size_t bound) { return random_() % bound; }
  // A text of up to `most` characters of a set.
  Text Any(TextView characters, size_t most) {
    Text text(Below(most + 1), u' ');
    for (char16_t& c : text) c = characters[Below(characters.size())];
    return text;
  }
  Text Pattern() {
    constexpr TextView kEnds[] = {u"*.", u"*", u"?", u"", u"~*.", u"#", u"[a-f]", u"[!a]"};
    return Concat(kEnds[Below(std::size(kEnds))], Any(u"aAb.*?#[]!-~$1\u00E9\u00C9\u03C2\u03A3", 6));
  }
  // A name made of a pattern: its special characters are filled in, and some characters are changed.
  Text Name(TextView pattern) {
    Text name;
    for (const char16_t c : pattern) {
      if (c == u'*') {
        name += Any(kLetters, 8);
      } else if (c == u'?' || c == u'#') {
        name += Any(u"aZ5.~", 1);
      } else if (Below(30) != 0) {
        name += Below(3) == 0 ? ToUpper(c) : Below(2) == 0 ? ToLower(Text(1, c))[0] : c;
      } else {
        name += kLetters[Below(kLetters.size())];
      }
    }
    return name;
  }

 private:
  static constexpr TextView kLetters =
      u"aAbBzZ019._-~$^@%# "
      u"[]!\u00E9\u00C9\u03C2\u03A3\u03C3\u017F\u212A\u0131\u0130\u00B5\u0434\u0414\xD83D\xDE00";
  std::mt19937 random_{20261122};
};

// A longer trial: TAVIX_NAMES=10000000.
TEST_F(JunkMatching, AgreesWithEachPatternByItself) {
  const char* wish = std::getenv("TAVIX_NAMES");
  const int names = wish != nullptr ? std::atoi(wish) : 200'000;
  constexpr int kRounds = 100;
  RandomNames random;
  int listed = 0, confirmed = 0;
  for (int round = 0; round < kRounds; ++round) {
    // The first round has the built-in types. Later ones have other patterns, with and without those.
    std::vector<Text> patterns;
    for (const auto& type : kBuiltInJunkTypes) {
      if (round == 0 || random.Below(round % 2 == 0 ? 2 : 20) == 0) patterns.emplace_back(type.pattern);
    }
    for (size_t more = round == 0 ? 0 : random.Below(40); more > 0; --more)
      patterns.push_back(random.Pattern());
    if (round > 0) {
      JunkPatternChunks.assign(1 + random.Below(3), Text());
      JunkTypes.clear();
      for (const Text& pattern : patterns) {
        JunkPatternChunks[random.Below(JunkPatternChunks.size())] += pattern + u";";
        JunkTypes.push_back(Concat(u"d|", pattern, u"|Y|Y|U"));
      }
    }
    JunkMatcher matcher;
    matcher.Update();
    ASSERT_EQ(matcher.Lists().size(), JunkPatternChunks.size());
    for (int i = 0; i < names / kRounds; ++i) {
      const Text name = random.Name(patterns.empty() ? u"*" : patterns[random.Below(patterns.size())]);
      const Text capitals = ToUpper(name);
      bool anyList = false;
      for (size_t list = 0; list < JunkPatternChunks.size(); ++list) {
        const bool fits = IsListedPlainly(capitals, JunkPatternChunks[list]);
        ASSERT_EQ(matcher.Lists()[list].Match(name), fits)
            << Narrow(JunkPatternChunks[list]) << " lists " << Narrow(name);
        ASSERT_EQ(matcher.Lists()[list].MatchCapitals(capitals), fits);
        anyList = anyList || fits;
      }
      ASSERT_EQ(matcher.IsListed(capitals), anyList) << Narrow(name);
      const bool confirms = std::ranges::any_of(
          patterns, [&](const Text& pattern) { return MatchesPattern(ToLower(name), ToLower(pattern)); });
      ASSERT_EQ(matcher.IsConfirmed(name), confirms) << Narrow(name);
      listed += anyList ? 1 : 0;
      confirmed += confirms ? 1 : 0;
    }
  }
  // Both answers are frequent.
  EXPECT_GT(listed, names / 4);
  EXPECT_LT(listed, names * 19 / 20);
  EXPECT_GT(confirmed, names / 4);
  EXPECT_LT(confirmed, names * 19 / 20);
}

}  // namespace
}  // namespace tavix::mdlPubSelf
