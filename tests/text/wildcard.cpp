#include "text/wildcard.h"

#include <gtest/gtest.h>

#include "text/utf8.h"

namespace tavix {
namespace {

TEST(FilePatterns, FitNamesByTheRulesOfTheFileSearch) {
  const struct {
    TextView patterns;
    TextView name;
    bool fits;
  } table[] = {
      // A star is any run of characters, even an empty one or one with dots.
      {u"*", u"a", true},
      {u"*", u"a.b.c", true},
      {u"a*", u"a", true},
      {u"a*", u"a.b", true},
      {u"a*", u"ba", false},
      {u"*a*b*", u"xaxxbx", true},
      {u"*a*b*", u"xbxa", false},
      {u"**.log", u"a.log", true},
      {u"*ab", u"aab", true},
      {u"*aab", u"aaaab", true},
      {u"*a?c", u"abcabc", true},
      // Every name, with and without a dot.
      {u"*.*", u"a.b", true},
      {u"*.*", u"README", true},
      {u"*.*", u".hidden", true},
      // Names with several dots.
      {u"*.log", u"a.log", true},
      {u"*.log", u"a.b.log", true},
      {u"*.log", u"a.log.txt", false},
      {u"*.log", u".log", true},
      {u"*.log", u"log", false},
      {u"*.tar.gz", u"a.tar.gz", true},
      {u"*.tar.gz", u"a.gz", false},
      {u"*.b*", u"a.b.c", true},
      {u"a.*", u"a.b.c", true},
      {u"a.*", u"a", false},
      // A pattern that ends in a dot matches names without a dot.
      {u"*.", u"README", true},
      {u"*.", u"a.b", false},
      {u"a*.", u"abc", true},
      {u"a*.", u"abc.d", false},
      {u"a*.", u"bc", false},
      {u"abc.", u"abc", true},
      {u"?.", u"a", true},
      // A question mark is one character other than a dot ...
      {u"?", u"a", true},
      {u"?", u"ab", false},
      {u"?", u".", false},
      {u"a?c", u"abc", true},
      {u"a?c", u"a.c", false},
      {u"a?c", u"ac", false},
      {u"??", u"a.", false},
      // ... or nothing at the end of the name or right before a dot.
      {u"a?", u"a", true},
      {u"a???", u"ab", true},
      {u"???.txt", u"a.txt", true},
      {u"???.txt", u"abc.txt", true},
      {u"???.txt", u"abcd.txt", false},
      {u"a?.b?", u"a.b", true},
      {u"file????._dd", u"file0001._dd", true},
      {u"file????._dd", u"file12._dd", true},
      {u"file????._dd", u"file._dd", true},
      {u"file????._dd", u"file00001._dd", false},
      {u"file????._dd", u"file12._d", false},
      // Letter case is ignored, for letters outside ASCII, too.
      {u"*.LOG", u"a.log", true},
      {u"*.log", u"A.LOG", true},
      {u"\u00e4?.*", u"\u00c4b.x", true},
      {u"*.\u0444", u"x.\u0424", true},
      // Several patterns.
      {u"*.chk;chklist.m*", u"file0000.chk", true},
      {u"*.chk;chklist.m*", u"CHKLIST.MS", true},
      {u"*.chk;chklist.m*", u"chklist.x", false},
      {u"*.a; *.b", u"x.b", true},
      {u";;*.b;", u"x.b", true},
      {u"; ;", u"x.b", false},
      {u"", u"x.b", false},
      {u"*.a;*.", u"noext", true},
      // All other characters, such as brackets, match themselves.
      {u"[ab].x", u"[ab].x", true},
      {u"[ab].x", u"a.x", false},
      {u"#.x", u"1.x", false},
      {u"a+b", u"a+b", true},
      // Only the name itself is matched, never its short name.
      {u"LONGNA~1.TXT", u"Long name of a file.txt", false},
      {u"*.htm", u"page.html", false},
      {u"?????????.txt", u"Long name of a file.txt", false},
  };
  for (const auto& row : table) {
    EXPECT_EQ(FilePatterns(row.patterns).Match(row.name), row.fits)
        << ToUtf8(row.patterns) << " and " << ToUtf8(row.name);
  }
}

// Only the last star is retried, not every star.
TEST(FilePatterns, TakeNoMoreTimeThanTheProductOfTheLengths) {
  Text pattern;
  for (int i = 0; i < 100; ++i) pattern += u"a*";
  const Text name(255, u'a');
  EXPECT_TRUE(FilePatterns(pattern).Match(name));
  EXPECT_FALSE(FilePatterns(pattern + u"b").Match(name));
  EXPECT_FALSE(FilePatterns(pattern + u"?b*c").Match(name));
}

}  // namespace
}  // namespace tavix
