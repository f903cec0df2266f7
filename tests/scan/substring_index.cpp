#include "scan/substring_index.h"
#include "support/case.h"

#include <gtest/gtest.h>

#include <random>

namespace tavix::mdlPubSelf {
namespace {

TEST(SubstringIndex, FindsWhatAPlainSearchFinds) {
  const struct {
    const char* says;
    TextView text, part;
    bool found;
  } table[] = {
      {"a whole name", u"{A}*SK*{B}", u"{B}", true},
      {"a part of one", u"{AB}*SK*{C}", u"B}", true},
      {"another letter case", u"{AB}*SK*{C}", u"{ab}", false},
      {"no name", u"{A}*SK*{B}", u"{D}", false},
      {"longer than every name", u"{A}*SK*{B}", u"{A}{B}", false},
      {"across a separator", u"{A}*SK*{B}", u"A}*SK*{B", true},
      {"a piece of the separator", u"{A}*SK*{B}", u"SK", true},
      {"with a star of the separator", u"{A}*SK*{B}", u"}*S", true},
      {"no separator where there is one name", u"{A}", u"SK", false},
      {"names that hold a star", u"a*b", u"a*b", true},
      {"nothing occurs in a text", u"{A}", u"", true},
      {"nothing doesn't in no text", u"", u"", false},
      {"no text", u"", u"{A}", false},
      {"the whole text", u"{A}*SK*{B}", u"{A}*SK*{B}", true},
      {"more than the whole text", u"{A}", u"{A}*SK*", false},
      {"a star alone", u"{A}*SK*{B}", u"*", true},
      {"outside ASCII", u"\u00FCber*SK*\U0001F600", u"\u00FCb", true},
      {"half a pair", u"\U0001F600", u"\xD83D", true},
  };
  for (const auto& row : table) {
    SubstringIndex index{Text(row.text)};
    EXPECT_EQ(index.Contains(row.part), row.found) << row.says;
    EXPECT_EQ(index.Contains(row.part), row.found) << row.says << ", asked again";
  }
}

TEST(SubstringIndex, AgreesWithAPlainSearchForAnyTextAndPart) {
  std::mt19937 random(4711);
  const auto text = [&random](int most) {
    Text made;
    for (int i = std::uniform_int_distribution(0, most)(random); i > 0; --i) {
      made += u"*SKab"[std::uniform_int_distribution<size_t>(0, 4)(random)];
    }
    return made;
  };
  int found = 0;
  for (int round = 0; round < 300; ++round) {
    const Text searched = text(60);
    SubstringIndex index(searched);
    for (int i = 0; i < 100; ++i) {
      const Text part = text(8);
      const bool expected = part.empty() ? !searched.empty() : searched.find(part) != Text::npos;
      found += expected ? 1 : 0;
      ASSERT_EQ(index.Contains(part), expected) << round << ' ' << i;
    }
  }
  EXPECT_GT(found, 3000);
  EXPECT_LT(found, 27000);
}

TEST(SubstringIndex, FindsPartsOfEveryLengthOfALongText) {
  Text text;
  for (char16_t c = u'0'; c < u'0' + 2000; ++c) text += c;
  SubstringIndex index(text);
  for (size_t length = 1; length <= text.size(); ++length) {
    SCOPED_TRACE(Case(length));
    ASSERT_TRUE(index.Contains(TextView(text).substr(text.size() - length)));
    ASSERT_FALSE(index.Contains(Concat(TextView(text).substr(0, length - 1), u" ")));
  }
}

}  // namespace
}  // namespace tavix::mdlPubSelf
