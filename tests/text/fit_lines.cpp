#include "text/fit_lines.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

TEST(FitLines, LeavesWhatFitsAndCutsTheRest) {
  struct Case {
    Text text;
    size_t lines;
    size_t width;
    Text fitted;
  };
  const Case cases[] = {
      {u"", 3, 5, u""},
      {u"one", 1, 5, u"one"},
      {u"12345", 1, 5, u"12345"},
      {u"a\nb\nc", 3, 5, u"a\nb\nc"},
      {u"a\r\nb\r\nc\r\nd", 3, 5, u"a\r\nb\r\n..."},
      // A line end at the end of the text begins another line.
      {u"a\nb\n", 2, 5, u"a\n..."},
      {u"a\nb\n", 3, 5, u"a\nb\n"},
      // A long line counts as several.
      {u"1234567", 2, 5, u"1234567"},
      {u"12345678901", 2, 5, u"12345\r\n..."},
      {u"123456\nb", 2, 5, u"12345\r\n..."},
      {u"a\n1234567890\nc", 3, 5, u"a\n12345\r\n..."},
      {u"a\nb", 1, 5, u"..."},
      {u"123456", 1, 5, u"..."},
      {Text(1'000'000, u'x'), 3, 80, Concat(Text(160, u'x'), u"\r\n...")},
      {Text(1'000'000, u'\n'), 3, 80, u"\n\n..."},
  };
  for (const Case& c : cases) EXPECT_EQ(FitLines(c.text, c.lines, c.width), c.fitted) << c.lines;
}

}  // namespace
}  // namespace tavix
