#include "text/ini_text.h"
#include "support/processor_time.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

constexpr TextView kMissing = u"<missing>";

Text Read(TextView content, TextView section, TextView key) {
  return ReadIniValue(content, section, key).value_or(Text(kMissing));
}

TEST(IniText, ReadsAValueOfItsSection) {
  constexpr TextView kContent = u"[One]\r\nkey=1\r\n[Two]\r\nkey=2\r\nother=3\r\n";
  EXPECT_EQ(Read(kContent, u"One", u"key"), u"1");
  EXPECT_EQ(Read(kContent, u"Two", u"key"), u"2");
  EXPECT_EQ(Read(kContent, u"One", u"other"), kMissing);
  EXPECT_EQ(Read(kContent, u"Three", u"key"), kMissing);
}

TEST(IniText, ReadsWhatALineTells) {
  const struct {
    TextView line, expected;
  } kCases[] = {
      {u"key=value", u"value"},
      {u"KEY=value", u"value"},
      {u" \tkey \t=\t value \t", u"value"},
      {u"key=", u""},
      {u"key=  ", u""},
      {u"key=a=b", u"a=b"},
      {u"key=a b", u"a b"},
      {u"key=;a", u";a"},
      {u"key=[a]", u"[a]"},
      {u"key=\"a\"", u"a"},
      {u"key=' a '", u" a "},
      {u"key=\"\"", u""},
      {u"key=\"", u"\""},
      {u"key=\"a", u"\"a"},
      {u"key=a\"", u"a\""},
      {u"key=\"a'", u"\"a'"},
      {u"key=\"\"a\"\"", u"\"a\""},
      {u"key=\\n", u"\\n"},
      {u"key=\u00E9\u8BF4", u"\u00E9\u8BF4"},
      {u";key=value", kMissing},
      {u"  ; key=value", kMissing},
      {u"key", kMissing},
      {u"keys=value", kMissing},
      {u"=value", kMissing},
      {u"", kMissing},
  };
  for (const auto& [line, expected] : kCases) {
    EXPECT_EQ(Read(Concat(u"[s]\n", line), u"s", u"key"), expected);
    EXPECT_EQ(Read(Concat(u"[s]\r\n", line, u"\r\nnext=1\r\n"), u"s", u"key"), expected);
  }
}

TEST(IniText, ReadsWhatAHeaderTells) {
  for (const TextView header :
       {u"[My Section]", u"[MY SECTION]", u"  [ My Section ]", u"[My Section] ; more"}) {
    EXPECT_EQ(Read(Concat(header, u"\nkey=value"), u"My Section", u"key"), u"value");
  }
  for (const TextView header : {u"[My Section", u"[MySection]", u"My Section", u";[My Section]", u"[]"}) {
    EXPECT_EQ(Read(Concat(header, u"\nkey=value"), u"My Section", u"key"), kMissing);
  }
}

TEST(IniText, HeaderThatIsntClosedEndsTheSectionBefore) {
  EXPECT_EQ(Read(u"[s]\n[t\nkey=value", u"s", u"key"), kMissing);
}

TEST(IniText, WhatStandsBeforeTheFirstSectionBelongsToNone) {
  EXPECT_EQ(Read(u"key=value\n[s]\n", u"", u"key"), kMissing);
  EXPECT_EQ(Read(u"key=value\n[s]\n", u"s", u"key"), kMissing);
}

TEST(IniText, SectionsOfOneNameAreOneAndTheFirstKeyHolds) {
  constexpr TextView kContent = u"[s]\na=1\na=2\n[t]\nx=0\n[S]\nA=3\nb=4\n";
  EXPECT_EQ(Read(kContent, u"s", u"a"), u"1");
  EXPECT_EQ(Read(kContent, u"s", u"b"), u"4");
}

TEST(IniText, EmptyTextHasNoValue) { EXPECT_EQ(Read(u"", u"s", u"key"), kMissing); }

TEST(IniText, VisitsTheEntriesOfASection) {
  Text seen;
  VisitIniSection(u"[s]\nb=1\n;c=2\na='3'\n[t]\nd=4\n[S]\nb=5\n", u"s",
                  [&](TextView key, TextView value) { seen += Concat(key, u":", value, u" "); });
  EXPECT_EQ(seen, u"b:1 a:3 b:5 ");
}

TEST(IniText, WritesOneValueAndKeepsAllElse) {
  const struct {
    TextView before, after;
  } kCases[] = {
      {u"[s]\nk=1\n", u"[s]\nk=new\n"},
      {u"[s]\nk=1", u"[s]\nk=new"},
      {u"; note\r\n[S]\r\n K = 1 \r\nx=2\r\n", u"; note\r\n[S]\r\n K = new \r\nx=2\r\n"},
      {u"[s]\nk='1'\n", u"[s]\nk=new\n"},
      {u"[s]\nk=\n", u"[s]\nk=new\n"},
      {u"[s]\nk=", u"[s]\nk=new"},
      {u"[s]\nk=1\nk=2\n", u"[s]\nk=new\nk=2\n"},
      {u"[s]\na=1\n[s]\nk=2\n", u"[s]\na=1\n[s]\nk=new\n"},
      {u"[t]\nk=1\n[s]\nk=2\n", u"[t]\nk=1\n[s]\nk=new\n"},
      {u"garbage\n\n[s]\r\nk=1\nmore garbage", u"garbage\n\n[s]\r\nk=new\nmore garbage"},
  };
  for (const auto& [before, after] : kCases) EXPECT_EQ(WriteIniValue(before, u"s", u"k", u"new"), after);
}

TEST(IniText, PutsAMissingKeyAtTheEndOfItsSection) {
  const struct {
    TextView before, after;
  } kCases[] = {
      {u"[s]\na=1\n", u"[s]\na=1\nk=new\n"},
      {u"[s]\na=1", u"[s]\na=1\nk=new\n"},
      {u"[s]\r\na=1", u"[s]\r\na=1\r\nk=new\r\n"},
      {u"[s]\n", u"[s]\nk=new\n"},
      {u"[s]", u"[s]\r\nk=new\r\n"},
      {u"[s]\na=1\n\n \n[t]\nb=2\n", u"[s]\na=1\nk=new\n\n \n[t]\nb=2\n"},
      {u"[s]\na=1\n; note\n\n[t]\n", u"[s]\na=1\n; note\nk=new\n\n[t]\n"},
      {u"[s]\na=1\n[t]\n[s]\nb=2\n", u"[s]\na=1\nk=new\n[t]\n[s]\nb=2\n"},
      {u"[s]\na=1\n[t\nb=2\n", u"[s]\na=1\nk=new\n[t\nb=2\n"},
  };
  for (const auto& [before, after] : kCases) EXPECT_EQ(WriteIniValue(before, u"s", u"k", u"new"), after);
}

TEST(IniText, PutsAMissingSectionAtTheEnd) {
  const struct {
    TextView before, after;
  } kCases[] = {
      {u"", u"[s]\r\nk=new\r\n"},
      {u"[t]\na=1\n", u"[t]\na=1\n[s]\nk=new\n"},
      {u"[t]\na=1\r\n\r\n", u"[t]\na=1\r\n\r\n[s]\nk=new\n"},
      {u"[t]\r\na=1", u"[t]\r\na=1\r\n[s]\r\nk=new\r\n"},
      {u"k=0", u"k=0\r\n[s]\r\nk=new\r\n"},
  };
  for (const auto& [before, after] : kCases) EXPECT_EQ(WriteIniValue(before, u"s", u"k", u"new"), after);
}

TEST(IniText, WrittenValueIsReadBackAsItIs) {
  for (const TextView value :
       {u"", u" ", u" a", u"a ", u"\ta\t", u"\"a\"", u"'a'", u"\"\"", u"\"", u"' '", u"a=b", u";a", u"[a]",
        u"\\n", u"a\"b", u" \"a\" ", u"|a|b|", u"\u00E9\u8BF4"}) {
    for (const TextView before : {u"", u"[s]\nk=1\n", u"[s]\nk=\"1\"", u"[s]\nother=1\n"}) {
      EXPECT_EQ(Read(WriteIniValue(before, u"s", u"k", value), u"s", u"k"), value);
    }
  }
}

TEST(IniText, QuotesOnlyWhatNeedsIt) {
  EXPECT_EQ(WriteIniValue(u"", u"s", u"k", u"a b"), u"[s]\r\nk=a b\r\n");
  EXPECT_EQ(WriteIniValue(u"", u"s", u"k", u"a "), u"[s]\r\nk=\"a \"\r\n");
  EXPECT_EQ(WriteIniValue(u"", u"s", u"k", u"'a'"), u"[s]\r\nk=\"'a'\"\r\n");
}

TEST(IniText, LineEndsInAValueBecomeBlanks) {
  EXPECT_EQ(Read(WriteIniValue(u"", u"s", u"k", u"a\r\nb\nc\rd"), u"s", u"k"), u"a b c d");
  EXPECT_EQ(Read(WriteIniValue(u"", u"s", u"k", u"a\n[t]\nx=1"), u"t", u"x"), kMissing);
}

TEST(IniText, NamesThatCantStandInTheFileWriteNothing) {
  constexpr TextView kContent = u"[s]\nk=1\n";
  for (const TextView name : {u"", u" a", u"a ", u"a\nb", u"a\n"}) {
    EXPECT_EQ(WriteIniValue(kContent, name, u"k", u"new"), kContent);
    EXPECT_EQ(WriteIniValue(kContent, u"s", name, u"new"), kContent);
  }
  EXPECT_EQ(WriteIniValue(kContent, u"a]b", u"k", u"new"), kContent);
  for (const TextView key : {u"a=b", u"[a", u";a"})
    EXPECT_EQ(WriteIniValue(kContent, u"s", key, u"new"), kContent);
}

TEST(IniText, ReadsAndWritesLargeFilesInOneGo) {
  Text content = u"[s]\n";
  for (int i = 0; i < 200000; ++i) content.append(u"key").append(ToText(i)).append(u"=value\n\n");
  const auto start = ProcessorTime();
  EXPECT_EQ(Read(content, u"s", u"last"), kMissing);
  EXPECT_EQ(Read(WriteIniValue(content, u"s", u"last", u"new"), u"s", u"last"), u"new");
  EXPECT_LT(ProcessorTime() - start, std::chrono::seconds(5));
}

}  // namespace
}  // namespace tavix
