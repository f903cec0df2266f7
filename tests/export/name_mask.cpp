#include "export/name_mask.h"

#include <gtest/gtest.h>

#include <random>
#include <set>

#include "support/case.h"
#include "text/letter_case.h"

namespace tavix::exporting {
namespace {

TEST(NameMask, KeepsLengthLetterCaseDigitsAndEverythingElse) {
  const NameMask mask(7);
  const Text masked = mask.Apply(u"Letter to BOB-2 (draft7), p.12");
  ASSERT_EQ(masked.size(), 30U);
  const TextView form = u"Aaaaaa to AAA-2 (aaaaa0), p.12";
  for (size_t i = 0; i < form.size(); ++i) {
    const char16_t c = masked[i];
    const bool fits = form[i] == u'A'   ? c >= u'A' && c <= u'Z'
                      : form[i] == u'a' ? c >= u'a' && c <= u'z'
                      : form[i] == u'0' ? c >= u'0' && c <= u'9'
                                        : true;
    EXPECT_TRUE(fits) << i << Case(masked);
  }
  EXPECT_EQ(masked[13], u'-');
  EXPECT_EQ(masked.substr(14, 2), u"2 ") << "a number stays";
  EXPECT_TRUE(masked.ends_with(u", p.12")) << "so does a single letter";
}

TEST(NameMask, GivesAWordTheSameMadeUpWordWhereverItStands) {
  const NameMask mask(7);
  const Text word = mask.Apply(u"holiday");
  EXPECT_NE(word, u"holiday");
  EXPECT_EQ(mask.Apply(u"C:\\holiday\\x.jpg"), Concat(u"C:\\", word, u"\\x.jpg"));
  EXPECT_EQ(mask.Apply(u"HOLIDAY"), ToUpper(word));
  EXPECT_EQ(NameMask(7).Apply(u"holiday"), word);
  EXPECT_NE(NameMask(8).Apply(u"holiday"), word);
}

TEST(NameMask, MakesNoTwoWordsEqual) {
  const NameMask mask(3);
  std::set<Text> seen;
  for (char16_t a = u'a'; a <= u'z'; ++a) {
    for (char16_t b = u'a'; b <= u'z'; ++b) seen.insert(mask.Apply(Text{a, b}));
  }
  EXPECT_EQ(seen.size(), 26U * 26U);
}

TEST(NameMask, KeepsWordsThatAreKeptAndMakesUpNoneOfThem) {
  NameMask mask(11);
  mask.Keep(u"*.mine;old-stuff");
  EXPECT_EQ(mask.Apply(u"C:\\Windows\\old.MINE"), u"C:\\Windows\\old.MINE");
  EXPECT_EQ(mask.Apply(u"stuff"), u"stuff");
  for (char16_t a = u'a'; a <= u'z'; ++a) {
    for (const TextView rest : {u"mp", u"og", u"hk", u"ld", u"ak"}) {
      const Text word = Concat(Text(1, a), rest), made = mask.Apply(word);
      if (made == word) continue;
      EXPECT_NE(made, u"tmp");
      EXPECT_NE(made, u"log");
      EXPECT_NE(made, u"old");
    }
  }
}

// Otherwise two names could become one.
TEST(NameMask, AWordKeptLateIsNoMadeUpWordAnyMore) {
  NameMask mask(5);
  const Text made = mask.Apply(u"secret");
  mask.Keep(made);
  EXPECT_EQ(mask.Apply(made), made);
  EXPECT_NE(mask.Apply(u"secret"), made);
}

TEST(NameMask, KeepsClassIdentifiersInBraces) {
  const NameMask mask(2);
  const Text id = u"{00021401-0000-0000-C000-00000000AbCd}";
  EXPECT_EQ(mask.Apply(id), id);
  EXPECT_EQ(mask.Apply(Concat(u"CLSID\\", id)), Concat(u"CLSID\\", id));
  EXPECT_NE(mask.Apply(u"{00021401-0000-0000-C000-00000000AbC}"), u"{00021401-0000-0000-C000-00000000AbC}");
}

TEST(NameMask, MasksLettersBeyondAsciiByPlainOnes) {
  const NameMask mask(2);
  for (const Text& word : {Text(u"Größe"), Text(u"файл"), Text(u"文件"), Text(u"\U0001F5D1x")}) {
    const Text masked = mask.Apply(word);
    EXPECT_EQ(masked.size(), word.size());
    for (const char16_t c : masked) EXPECT_LT(c, 0x80) << Case(word);
    EXPECT_EQ(mask.Apply(ToUpper(word)), ToUpper(masked)) << Case(word);
  }
}

}  // namespace
}  // namespace tavix::exporting
