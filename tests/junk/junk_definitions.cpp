#include "junk/junk_definitions.h"

#include "frame/data_paths.h"
#include "frame/settings.h"
#include "junk/built_in_types.h"
#include "support/case.h"
#include "support/program_test.h"

namespace tavix::mdlPubSelf {
namespace {

// The expected content of the file of built-in types.
std::string BuiltInFile() {
  Text lines;
  for (const auto& type : kBuiltInJunkTypes) {
    lines += Concat(type.description, u"\t", type.pattern, u"\t", type.flags, u"\r\n");
  }
  return Narrow(lines);
}

class JunkDefinitions : public ProgramTest {
 protected:
  JunkDefinitions() {
    machine.files.AddFolder(u"C:\\");
    Start();
  }
  void Load(std::string_view builtIn, std::string_view user) {
    machine.files.AddFile(kBuiltInJunkFile, {.content = std::string(builtIn)});
    machine.files.AddFile(kUserJunkFile, {.content = std::string(user)});
    LoadJunkDefinitions();
  }
  std::string Content(TextView file) { return machine.files.ReadFile(file).value_or("none"); }
};

// `lines` lines with one pattern each. A pattern and its separator have `length` characters.
std::string LinesOf(int lines, size_t length) {
  std::string content;
  for (int i = 0; i < lines; ++i) content += "d\t" + std::string(length - 1, 'x') + "\tY\tY\r\n";
  return content;
}

TEST_F(JunkDefinitions, WithoutAFileTheTableOf56LinesIsWritten) {
  machine.files.DeleteFile(kBuiltInJunkFile, true);
  LoadJunkDefinitions();
  EXPECT_EQ(std::size(kBuiltInJunkTypes), 56U);
  EXPECT_EQ(Content(kBuiltInJunkFile), BuiltInFile());
  ASSERT_EQ(JunkTypes.size(), 56U);
  EXPECT_EQ(JunkTypes.front(), u"Backup Files|*.old|Y|Y|D");
  EXPECT_EQ(JunkTypes[12], u"File Fragments|file????._dd|Y|N|D");
  EXPECT_EQ(JunkTypes.back(), u"WordPerfect Temporary Files|*.spc|N|N|D");
}

TEST_F(JunkDefinitions, TheTableGivesTwoTextsOf249And138Characters) {
  ASSERT_EQ(JunkPatternChunks.size(), 2U) << "loaded at start";
  EXPECT_EQ(JunkPatternChunks[0].size(), 249U);
  EXPECT_EQ(JunkPatternChunks[1].size(), 138U);
  EXPECT_TRUE(JunkPatternChunks[0].starts_with(u"*.old;*.bak;*.prv;"));
  EXPECT_TRUE(JunkPatternChunks[0].ends_with(u"0???????.nch;thumbs.db"));
  EXPECT_TRUE(JunkPatternChunks[1].starts_with(u"*exe-*.pf;*.fnd;"));
  EXPECT_TRUE(JunkPatternChunks[1].ends_with(u"*.wbk;*.spc"));
}

TEST_F(JunkDefinitions, ThePatternOfPrecompiledHeadersIsATypeButInNoList) {
  EXPECT_EQ(JunkTypes[32], u"Precompiled Header Files|*.pch|N|N|D");
  for (const Text& chunk : JunkPatternChunks) EXPECT_FALSE(chunk.contains(u"*.pch")) << Case(chunk);
}

TEST_F(JunkDefinitions, ADisabledTypeIsSearchedLikeAnyOther) {
  EXPECT_EQ(JunkTypes[1], u"Backup Files|*.bak|N|N|D");
  EXPECT_TRUE(JunkPatternChunks[0].contains(u";*.bak;"));
}

TEST_F(JunkDefinitions, TenBytesStayAsTheHeadOfTheTable) {
  Load("old\t*.x\tY", "");
  EXPECT_EQ(Content(kBuiltInJunkFile), "old\t*.x\tY" + BuiltInFile());
  EXPECT_EQ(JunkTypes.size(), 56U);
  EXPECT_EQ(JunkTypes.front(), u"old|*.x|YBackup Files|*.old|Y|Y|D");
}

TEST_F(JunkDefinitions, TwentyBytesAreReadAsTheyAre) {
  const std::string line = "Twenty\t*.twenty\tY\tY\r\n";
  const std::string twenty = line.substr(line.size() - 20);
  Load(twenty, "");
  EXPECT_EQ(Content(kBuiltInJunkFile), twenty);
  EXPECT_EQ(JunkTypes, (std::vector<Text>{u"wenty|*.twenty|Y|Y|D"}));
  EXPECT_EQ(JunkPatternChunks, (std::vector<Text>{u"*.twenty"}));
  Load(line.substr(line.size() - 19), "");
  EXPECT_EQ(JunkTypes.size(), 57U) << "one byte less is too short";
}

TEST_F(JunkDefinitions, AMissingFileOfTheUserIsMadeEmpty) {
  machine.files.DeleteFile(kUserJunkFile, true);
  const std::vector<Text> types = JunkTypes;
  const std::vector<Text> chunks = JunkPatternChunks;
  LoadJunkDefinitions();
  EXPECT_EQ(Content(kUserJunkFile), "");
  EXPECT_EQ(JunkTypes, types);
  EXPECT_EQ(JunkPatternChunks, chunks);
}

TEST_F(JunkDefinitions, TheUsersFirstPatternJoinsTheLastBuiltInOne) {
  machine.files.AddFile(kUserJunkFile, {.content = "My Type\t*.abc\tY\tN\r\nOther\t*.def\tY\tY\tU\r\n"});
  LoadJunkDefinitions();
  ASSERT_EQ(JunkTypes.size(), 58U);
  EXPECT_EQ(JunkTypes[55], u"WordPerfect Temporary Files|*.spc|N|N|D");
  EXPECT_EQ(JunkTypes[56], u"My Type|*.abc|Y|N|U");
  EXPECT_EQ(JunkTypes[57], u"Other|*.def|Y|Y|U|U") << "lines of the editor already have the user's mark";
  EXPECT_TRUE(JunkPatternChunks.back().ends_with(u"*.wbk;*.spc*.abc;*.def"));
  machine.files.AddFile(kUserJunkFile, {.content = "My Type\t*.abc\tY\tN\r\n"});
  LoadJunkDefinitions();
  EXPECT_TRUE(JunkPatternChunks.back().ends_with(u"*.spc*.abc"));
}

TEST_F(JunkDefinitions, AListIsClosedByTheLineThatFindsMoreThan240Characters) {
  // Six patterns of 40 characters, separators included, make 240: not more than the limit.
  Load(LinesOf(6, 40) + "d\t*.a\t\t\r\nd\t*.b\t\t\r\nd\t*.c\t\t\r\n", "");
  ASSERT_EQ(JunkPatternChunks.size(), 2U);
  EXPECT_TRUE(JunkPatternChunks[0].ends_with(u"x;*.a"));
  EXPECT_EQ(JunkPatternChunks[0].size(), 243U);
  EXPECT_EQ(JunkPatternChunks[1], u"*.c");
  EXPECT_EQ(JunkTypes.size(), 9U);
}

TEST_F(JunkDefinitions, AListThatIsFullWithTheLastLineIsClosedByTheFirstOfTheUser) {
  Load(LinesOf(7, 40), "d\t*.a\tY\tY\r\nd\t*.b\tY\tY\r\nd\t*.c\tY\tY\r\n");
  ASSERT_EQ(JunkPatternChunks.size(), 2U);
  EXPECT_EQ(JunkPatternChunks[0].size(), 279U);
  EXPECT_EQ(JunkPatternChunks[1], u"*.b;*.c");
}

TEST_F(JunkDefinitions, LinesAreTrimmedOfBlanksAndNothingElse) {
  Load("   Two words\t *.a b \tY\tY  \r\nd\t*.c\r\n", "\t*.u\t\t\r\n");
  EXPECT_EQ(JunkTypes, (std::vector<Text>{u"Two words| *.a b |Y|Y|D", u"d|*.c|D", u"|*.u|||U"}));
  EXPECT_EQ(JunkPatternChunks, (std::vector<Text>{u" *.a b ;*.c*.u"}));
}

TEST_F(JunkDefinitions, AnEmptyLineIsATypeWithNoPattern) {
  Load("\r\nBackup Files\t*.old\tY\tY\r\n   \r\nno tab\r\n", "\r\n");
  EXPECT_EQ(JunkTypes, (std::vector<Text>{u"|D", u"Backup Files|*.old|Y|Y|D", u"|D", u"no tab|D", u"|U"}));
  EXPECT_EQ(JunkPatternChunks, (std::vector<Text>{u"*.old"}));
}

TEST_F(JunkDefinitions, FilesOfAnyBytesAreRead) {
  using namespace std::literals;
  const struct {
    std::string_view bytes;
    std::vector<Text> types;
  } table[] = {
      {"Gr\xFC\xDF e\t*.gr\xFC\t\t\r\n...."sv, {u"Gr\u00FC\u00DF e|*.gr\u00FC|||D", u"....|D"}},
      {"Gr\xC3\xBC\xC3\x9F long e\t*.gr\xC3\xBC\t\r\n"sv, {u"Gr\u00FC\u00DF long e|*.gr\u00FC||D"}},
      {"line feed\t*.a\nonly\t*.b\n"sv, {u"line feed|*.a|D", u"only|*.b|D"}},
      {"carriage\rreturn\t*.a\r\r\n"sv, {u"carriage\rreturn|*.a\r|D"}},
      {"no line end\t*.abcdefghij"sv, {u"no line end|*.abcdefghij|D"}},
      {"nul\0nul\t*.a\0b\tY\tY\r\n.."sv, {Text(u"nul\0nul|*.a\0b|Y|Y|D"sv), u"..|D"}},
      {"\xFF\xFEu\0\t\0*\0.\0u\0\r\0\n\0v\0\t\0w\0"sv, {u"u|*.u|D", u"v|w|D"}},
  };
  for (const auto& row : table) {
    Load(row.bytes, "");
    EXPECT_EQ(JunkTypes, row.types) << row.bytes;
  }
  std::string all;
  for (int c = 0; c < 256; ++c) all += static_cast<char>(c);
  Load(all, all);
  EXPECT_EQ(JunkTypes.size(), 4U) << "the one line feed ends a line";
}

TEST_F(JunkDefinitions, AFileThatCannotBeReadAddsNothing) {
  machine.files.AddFile(kUserJunkFile, {.content = "u\t*.u\tY\tY\r\n"});
  machine.files.faults.Fail(u"ReadFile", kBuiltInJunkFile);
  LoadJunkDefinitions();
  EXPECT_EQ(JunkTypes, (std::vector<Text>{u"u|*.u|Y|Y|U"}));
  EXPECT_EQ(JunkPatternChunks, (std::vector<Text>{u"*.u"}));
  machine.files.faults.Fail(u"ReadFile", kUserJunkFile);
  LoadJunkDefinitions();
  EXPECT_TRUE(JunkTypes.empty());
  EXPECT_EQ(JunkPatternChunks, (std::vector<Text>{Text()}));
}

TEST_F(JunkDefinitions, AFileThatCannotBeLookedAtIsNotWrittenTo) {
  Load("one\t*.something\tY\tY\r\n", "");
  machine.files.faults.Fail(u"Look", kBuiltInJunkFile);
  LoadJunkDefinitions();
  EXPECT_EQ(Content(kBuiltInJunkFile), "one\t*.something\tY\tY\r\n");
}

TEST_F(JunkDefinitions, EachLoadStartsFromEmptyLists) {
  const std::vector<Text> types = JunkTypes;
  const std::vector<Text> chunks = JunkPatternChunks;
  Load("one\t*.something\tY\tY\r\n", "");
  EXPECT_EQ(JunkTypes.size(), 1U);
  machine.files.DeleteFile(kBuiltInJunkFile, true);
  LoadJunkDefinitions();
  EXPECT_EQ(JunkTypes, types);
  EXPECT_EQ(JunkPatternChunks, chunks);
}

}  // namespace
}  // namespace tavix::mdlPubSelf
