#include "scan/command_path.h"

#include <algorithm>
#include <random>

#include "support/program_test.h"

namespace tavix::mdlPubSelf {
namespace {

class ExtractCommandPathTest : public ProgramTest {
 protected:
  ExtractCommandPathTest() { Start(); }
};

struct Case {
  const char* says;
  Text command;
  Text path;
};

void Check(const std::vector<Case>& table) {
  for (const Case& row : table) {
    EXPECT_EQ(Narrow(ExtractCommandPath(row.command)), Narrow(row.path))
        << row.says << ": " << Narrow(row.command);
  }
}

TEST_F(ExtractCommandPathTest, APathOfAnExistingFileIsReturnedWhole) {
  machine.files.AddFile(u"C:\\Program Files\\My App\\my tool.exe.bak");
  machine.files.AddFile(u"C:\\a, -b\\genuinst.exe");
  machine.files.AddFile(u"C:\\x\\y.dll");
  machine.files.AddFolder(u"C:\\Folder");
  Check({
      {"unchanged", u"C:\\Program Files\\My App\\my tool.exe.bak",
       u"C:\\Program Files\\My App\\my tool.exe.bak"},
      {"in quotes", u"\"C:\\Program Files\\My App\\my tool.exe.bak\"",
       u"C:\\Program Files\\My App\\my tool.exe.bak"},
      {"blanks outside", u"  \"C:\\Program Files\\My App\\my tool.exe.bak\"   ",
       u"C:\\Program Files\\My App\\my tool.exe.bak"},
      {"quotes anywhere", u"C:\\Program \"Files\\My\" App\\my tool.exe.bak",
       u"C:\\Program Files\\My App\\my tool.exe.bak"},
      {"in another letter case, which it keeps", u"c:\\PROGRAM FILES\\my app\\MY TOOL.exe.BAK",
       u"c:\\PROGRAM FILES\\my app\\MY TOOL.exe.BAK"},
      {"with marks in its name", u"C:\\a, -b\\genuinst.exe", u"C:\\a, -b\\genuinst.exe"},
      {"with slashes", u"C:/x/y.dll", u"C:/x/y.dll"},
      {"a blank inside the quotes is part of the path", u"\" C:\\x\\y.dll\"", u""},
      {"a folder is no file", u"C:\\Folder", u"C:\\Folder"},
      {"a tab is no blank", u"\tC:\\x\\y.dll", u"\tC:\\x\\y.dll"},
  });
}

TEST_F(ExtractCommandPathTest, AFailingTestOfTheFileCountsAsFalse) {
  machine.files.AddFile(u"C:\\My App\\a.exe");
  machine.files.faults.Fail(u"FileExists");
  Check({{"cut at the blank after the last backslash", u"C:\\My App\\a b.dll", u"C:\\My App\\a"},
         {"found no more", u"\"C:\\My App\\a.exe\"", u"C:\\My App\\a.exe"}});
}

TEST_F(ExtractCommandPathTest, TheResourcePrefixGoes) {
  Check({
      {"a drive", u"@C:\\Windows\\system32\\shell32.dll,-101", u"C:\\Windows\\system32\\shell32.dll"},
      {"a quoted drive", u"@\"C:\\Windows\\shell32.dll\",-101", u"C:\\Windows\\shell32.dll"},
      {"a variable has no colon", u"@%SystemRoot%\\system32\\shell32.dll,-101", u""},
      {"a variable and a slash", u"@%SystemRoot%\\system32\\shell32.dll /x",
       u"%SystemRoot%\\system32\\shell32.dll"},
      {"a name has no colon", u"@shell32.dll,-1", u""},
      {"a slash after the colon", u"@C:/x\\y", u""},
      {"a second one is in the place of the drive", u"@@C:\\x\\y.dll", u""},
      {"after a blank it is no prefix, and the colon comes too late", u" @C:\\x.dll,-1", u""},
      {"without it the colon is third", u"@C:\\x.dll", u"C:\\x.dll"},
      {"one character before the colon, of any kind", u"@*:\\x.dll", u"*:\\x.dll"},
      {"two are no drive", u"@CC:\\x.dll", u""},
      {"the backslash is needed", u"@C:x\\y.dll", u"@C:x\\y.dll"},
  });
}

TEST_F(ExtractCommandPathTest, ASlashComesFirst) {
  Check({
      {"switch", u"C:\\Windows\\notepad.exe /p", u"C:\\Windows\\notepad.exe"},
      {"at the start", u"/S C:\\x\\uninstall.exe", u""},
      {"no drive is needed", u"%SystemRoot%\\system32\\app.exe /x", u"%SystemRoot%\\system32\\app.exe"},
      {"no drive and no folder", u"msiexec /i {1}", u""},
      {"before the uninstaller's name is looked for", u"C:\\WINDOWS\\GENUINST.EXE /x",
       u"C:\\WINDOWS\\GENUINST.EXE"},
      {"before the other marks", u"C:\\a -b\\c.dll /x", u"C:\\a -b\\c.dll"},
      {"within the path", u"C:\\a/b\\c.dll", u"C:\\a"},
      {"a colon far away", u"abcd:\\x\\y.dll /s", u"abcd:\\x\\y.dll"},
      {"quoted path", u"\"C:\\Program Files\\A\\a.exe\" /s", u"C:\\Program Files\\A\\a.exe"},
  });
}

TEST_F(ExtractCommandPathTest, AColonMustBeAmongTheFirstThreeCharacters) {
  Check({
      {"second", u"C:\\x\\y.dll", u"C:\\x\\y.dll"},
      {"third, after a quote", u"\"C:\\x\\y.dll\"", u"C:\\x\\y.dll"},
      {"third, after a blank", u" C:\\x\\y.dll", u"C:\\x\\y.dll"},
      {"first", u":\\x\\y.dll", u":\\x\\y.dll"},
      {"fourth", u"abc:\\x", u""},
      {"fifth", u"abcd:\\x", u""},
      {"two blanks before", u"  C:\\x\\y.dll", u""},
      {"none", u"setup.exe", u""},
      {"none, with a folder", u"%SystemRoot%\\system32\\app.exe", u""},
      {"network path", u"\\\\server\\share\\a.exe", u""},
      {"no folder", u"C:setup.exe", u""},
      {"empty", u"", u""},
      {"one blank", u" ", u""},
      {"a quote", u"\"", u""},
      {"a drive alone", u"C:", u""},
      {"the root of a drive", u"C:\\", u"C:\\"},
  });
}

TEST_F(ExtractCommandPathTest, TheFirstMarkFoundCutsThePath) {
  Check({
      {"hyphen", u"C:\\Progra~1\\App\\uninstall.exe -remove", u"C:\\Progra~1\\App\\uninstall.exe"},
      {"hyphen before the others, wherever it is", u"C:\\a %1 \"%1\",-1 -x", u"C:\\a"},
      {"hyphen within a folder's name", u"C:\\a -b\\c.dll", u"C:\\a"},
      {"the quoted argument before the plain one", u"C:\\a %1 \"%1\"", u"C:\\a"},
      {"plain argument", u"C:\\a\\b.com %1", u"C:\\a\\b.com"},
      {"any longer argument", u"C:\\a\\b.com %1x %1", u"C:\\a\\b.com"},
      {"icon", u"C:\\a\\b.dll,-5", u"C:\\a\\b.dll"},
      {"without a hyphen it is no icon number", u"C:\\a\\b.dll,5", u"C:\\a\\b.dll,5"},
      {"the mark is taken from the text with its quotes", u"\"C:\\a\\b.com\" %1", u"C:\\a\\b.com"},
      {"blanks before the cut", u"C:\\a\\b.com   -x", u"C:\\a\\b.com"},
      {"nothing is left", u" -C:\\x", u""},
  });
}

TEST_F(ExtractCommandPathTest, TheUninstallersNameIsRefusedInAnyLetterCase) {
  Check({
      {"capitals", u"C:\\WINDOWS\\GENUINST.EXE \"x\"", u""},
      {"mixed", u"C:\\GenUInst.exe", u""},
      {"as a part", u"C:\\a\\xgenuinst.exe2\\b.dll", u""},
      {"another name", u"C:\\a\\genuinst.ex", u"C:\\a\\genuinst.ex"},
  });
}

TEST_F(ExtractCommandPathTest, WordsAfterTheLastBackslashAreStripped) {
  Check({
      {"several", u"C:\\Windows\\system32\\rundll32.exe shell32.dll,Control_RunDLL x",
       u"C:\\Windows\\system32\\rundll32.exe"},
      {"a blank in the name", u"C:\\Program Files\\My App", u"C:\\Program Files\\My"},
      {"blanks in folders stay", u"C:\\Program Files\\App\\a.dll", u"C:\\Program Files\\App\\a.dll"},
      {"the backslash ends it", u"C:\\My Folder\\", u"C:\\My Folder\\"},
      {"the last backslash is that of an argument", u"C:\\a b.txt C:\\c d", u"C:\\a b.txt C:\\c"},
      {"several blanks in a row", u"C:\\a  b", u"C:\\a"},
      {"a name that begins with a blank", u"C:\\x\\ a.dll", u"C:\\x\\"},
      {"no folder", u"rundll32 x.dll,Entry", u""},
      {"no folder after the drive", u"C:a b", u""},
  });
}

TEST_F(ExtractCommandPathTest, KeepsTheQuoteMismatchOfTheExtensionCut) {
  Check({
      {"no quote", u"C:\\a\\b.exeXYZ", u"C:\\a\\b.exe"},
      {"one quote leaves a character", u"\"C:\\a\\b.exeXYZ\"", u"C:\\a\\b.exeX"},
      {"two quotes leave two", u"\"\"C:\\a\\b.exeXYZ\"", u""},
      {"two quotes, one after the drive", u"\"C:\"\\a\\b.exeXYZ", u"C:\\a\\b.exeXY"},
      {"quotes on both sides", u"\"C:\\Program Files\\App\\app.exe\" \"%1\"",
       u"C:\\Program Files\\App\\app.exe"},
      {"a blank before leaves a character", u" C:\\a\\b.exeXYZ", u"C:\\a\\b.exeX"},
      {"capitals", u"C:\\a\\B.EXEcutable", u"C:\\a\\B.EXE"},
      {"the first of two, a folder's", u"C:\\a.exe\\b.exe", u"C:\\a.exe"},
      {"after the cut of an argument", u"C:\\a\\b.com -x.exe", u"C:\\a\\b.com"},
      {"of an argument before the path's end", u"C:\\a\\b.dll,-x.exe", u"C:\\a\\b.dll"},
      {"the prefix is gone before it", u"@C:\\a\\b.exeXYZ,-1", u"C:\\a\\b.exe"},
  });
}

constexpr size_t kMaxPosition = 32767;

// A text of `length` characters.
Text Filler(size_t length, char16_t c = u'x') { return Text(length, c); }

TEST_F(ExtractCommandPathTest, APositionOverSixteenBitsIsIgnored) {
  const Text path = u"C:\\a b\\c.dll";
  const Text beyond = Concat(path, Filler(kMaxPosition - path.size()));
  const Text atMost = beyond.substr(0, kMaxPosition - 1);
  const auto check = [](const char* says, const Text& command, const Text& expected) {
    EXPECT_EQ(ExtractCommandPath(command), expected) << says;
  };
  check("a slash at 32767 is found", Concat(atMost, u"/x"), atMost);
  check("one at 32768 is not, and nothing else cuts", Concat(beyond, u"/x"), Concat(beyond, u"/x"));
  check("nor without a drive", Concat(Filler(kMaxPosition), u"/\\"), u"");
  check("a hyphen after 32767 cuts at the position that the colon left", Concat(beyond, u" -x"), u"");
  check("and found at 32767", Concat(atMost, u" -x"), atMost);
  check("an argument after 32767 is not cut", Concat(beyond, u" %1"), Concat(beyond, u" %1"));
  check("nor an icon", Concat(beyond, u",-1"), Concat(beyond, u",-1"));
  check("nor a second slash", Concat(beyond, u"//"), Concat(beyond, u"//"));
  check("the uninstaller's name is looked for everywhere", Concat(beyond, u"genuinst.exe"), u"");
  check("an extension after 32767 cuts nothing", Concat(beyond, u".exeXYZ"), Concat(beyond, u".exeXYZ"));
  check("at 32767 it cuts", Concat(atMost, u".exeXYZ"), Concat(atMost, u".exe"));
  check("a blank after 32767 strips nothing", Concat(beyond, u" x"), Concat(beyond, u" x"));
  check("a backslash after 32767 is not found, so the last blank before cuts", Concat(beyond, u"\\d"),
        u"C:\\a");
  check("and with no word left there is no folder", Concat(u"C:x y", Filler(kMaxPosition), u"\\d"), u"");
}

TEST_F(ExtractCommandPathTest, IsNeverLongerThanItsTextAndHasNoQuote) {
  machine.files.AddFile(u"C:\\a b\\c.exe");
  const std::vector<Text> pieces = {u"C:", u"\\", u"\"",   u" ",    u"@",   u"%", u"/",     u" -", u" \"%1\"",
                                    u",-", u"a",  u".exe", u".EXE", u"dll", u":", u"a b\\", u"\t", u"\u00FC",
                                    u"%1", u"-",  u"?",    u"*",    u"[",   u"#", u"c.exe"};
  std::mt19937 random(20210630);
  int withPath = 0;
  for (int round = 0; round < 20'000; ++round) {
    Text command = round % 2 == 0 ? u"C:\\" : u"";
    for (int i = std::uniform_int_distribution(0, 12)(random); i > 0; --i) {
      command += pieces[std::uniform_int_distribution<size_t>(0, pieces.size() - 1)(random)];
    }
    const Text path = ExtractCommandPath(command);
    withPath += path.empty() ? 0 : 1;
    ASSERT_LE(path.size(), command.size()) << Narrow(command);
    ASSERT_EQ(path.find(u'"'), Text::npos) << Narrow(command);
  }
  EXPECT_GT(withPath, 1000) << "the random texts must give some paths";
}

}  // namespace
}  // namespace tavix::mdlPubSelf
