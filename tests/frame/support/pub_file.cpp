#include "frame/support/pub_file.h"

#include "doubles/memory_file_system.h"
#include "support/program_test.h"

namespace tavix {
namespace {

class PubFile : public ProgramTest {
 protected:
  static constexpr TextView kFile = u"C:\\list.txt";
  PubFile() { machine.files.AddFolder(u"C:\\"); }
  void Write(std::string_view content) { machine.files.AddFile(kFile, {.content = std::string(content)}); }
  std::string Read() { return machine.files.ReadFile(kFile).value_or("missing"); }
  clsPubFile file{&machine.fileSystem};
};

TEST_F(PubFile, AppendCreatesTheFileAndEndsEachTextWithALineEnd) {
  file.AppendLine(kFile, u"one");
  file.AppendLine(kFile, u"zw\u00F6lf");
  EXPECT_EQ(Read(), "one\r\nzw\u00F6lf\r\n");
}

TEST_F(PubFile, AppendContinuesALineWithoutAnEnd) {
  Write("a");
  file.AppendLine(kFile, u"b");
  EXPECT_EQ(Read(), "ab\r\n");
}

TEST_F(PubFile, AppendKeepsTheEncodingOfTheFile) {
  Write("caf\xE9\r\n");
  file.AppendLine(kFile, u"\u00FC");
  EXPECT_EQ(Read(), "caf\xE9\r\n\xFC\r\n");
}

TEST_F(PubFile, CountIsLineEndsAndOneMore) {
  int count = 99;
  file.CountLines(kFile, count);
  EXPECT_EQ(count, 0) << "a missing file";
  for (const auto& [content, lines] : {std::pair{"", 1}, {"a", 1}, {"a\r\n", 2}, {"a\nb\r\n\r\n", 4}}) {
    Write(content);
    file.CountLines(kFile, count);
    EXPECT_EQ(count, lines) << content;
  }
}

TEST_F(PubFile, RemoveTakesEveryLineWhoseFieldIsTheText) {
  Write("Temp files\t*.tmp\tx\r\nBackups\t*.bak\r\nMore\t*.tmp\r\n*.tmp\tno\r\nshort\r\nlast\t*.tmp");
  file.RemoveLine(kFile, u"*.tmp", u"\t", 1);
  EXPECT_EQ(Read(), "Backups\t*.bak\r\n*.tmp\tno\r\nshort\r\n");
}

TEST_F(PubFile, RemoveWithoutAMatchLeavesTheFileAsItWas) {
  Write("a\t*.x\nb");
  machine.files.faults.Fail(u"WriteFile");
  file.RemoveLine(kFile, u"*.X", u"\t", 1);
  file.RemoveLine(kFile, u"", u"\t", 1);
  EXPECT_EQ(Read(), "a\t*.x\nb");
}

TEST_F(PubFile, FailuresLeaveFileAndOutput) {
  Write("a\t*.x\r\n");
  machine.files.faults.Fail(u"WriteFile");
  machine.files.faults.Fail(u"AppendToFile");
  file.RemoveLine(kFile, u"*.x", u"\t", 1);
  file.AppendLine(kFile, u"more");
  EXPECT_EQ(Read(), "a\t*.x\r\n");
  int count = 7;
  clsPubFile().CountLines(kFile, count);
  clsPubFile().AppendLine(kFile, u"x");
  clsPubFile().RemoveLine(kFile, u"*.x", u"\t", 1);
  EXPECT_EQ(count, 7);
}

}  // namespace
}  // namespace tavix
