#include "frame/support/pub_system.h"

#include "doubles/memory_file_system.h"
#include "doubles/memory_shell.h"
#include "platform/machine/formats/machine_facts.h"
#include "platform/machine/services/journal.h"
#include "platform/machine/services/machine_desktop.h"
#include "platform/machine/services/machine_dialogs.h"
#include "support/program_test.h"

namespace tavix {
namespace {

class PubSystem : public ProgramTest {
 protected:
  static constexpr TextView kFile = u"C:\\set.ini";
  PubSystem() { machine.files.AddFolder(u"C:\\"); }
  void Write(std::string_view content) { machine.files.AddFile(kFile, {.content = std::string(content)}); }
  std::string Read() { return machine.files.ReadFile(kFile).value_or("missing"); }
  Text Value(TextView section, TextView key) {
    Text value = u"before";
    system.ReadProfileString(kFile, section, key, value);
    return value;
  }
  clsPubSystem system{{&machine.shell, &machine.fileSystem, &machine.dialogs, &machine.desktop}};
};

TEST_F(PubSystem, MissingFileSectionOrKeyGivesTheEmptyText) {
  EXPECT_EQ(Value(u"S", u"k"), u"");
  Write("[S]\r\nk=v\r\n");
  EXPECT_EQ(Value(u"S", u"k"), u"v");
  EXPECT_EQ(Value(u"s", u"K"), u"v");
  EXPECT_EQ(Value(u"S", u"other"), u"");
  EXPECT_EQ(Value(u"T", u"k"), u"");
}

TEST_F(PubSystem, WritingMakesFileSectionAndKeyAndKeepsAllElse) {
  system.WriteProfileString(kFile, u"S", u"k", u"1");
  EXPECT_EQ(Value(u"S", u"k"), u"1");
  Write("; note\r\n[Other]\r\nx=1\r\n[S]\r\nunknown=2\r\nk=1\r\n");
  system.WriteProfileString(kFile, u"S", u"k", u"2");
  EXPECT_EQ(Read(), "; note\r\n[Other]\r\nx=1\r\n[S]\r\nunknown=2\r\nk=2\r\n");
}

TEST_F(PubSystem, AnUnreadableFileIsNotWrittenOver) {
  Write("[S]\r\nk=1\r\n");
  machine.files.faults.Fail(u"ReadFile", kFile);
  system.WriteProfileString(kFile, u"S", u"k", u"2");
  machine.files.faults.Clear();
  EXPECT_EQ(Read(), "[S]\r\nk=1\r\n");
}

TEST_F(PubSystem, CallsReachTheShell) {
  system.RunTarget(u"regedit.exe", 3);
  system.OpenPath(u"C:\\a.txt", 3);
  system.ShowFileProperties(0, u"C:\\a.txt");
  system.DeleteAtRestart(u"C:\\a.txt");
  system.EmptyRecycleBin(0, 0);
  std::vector<Text> calls;
  for (const auto& entry : machine.journal.Entries()) calls.push_back(entry.op);
  EXPECT_EQ(calls, (std::vector<Text>{u"RunTarget", u"OpenPath", u"ShowFileProperties", u"DeleteAtRestart",
                                      u"EmptyRecycleBin"}));
}

TEST_F(PubSystem, AFailedLookUpLeavesTheOutput) {
  Text out = u"before";
  system.GetSpecialFolder(32, out);
  system.GetUserTempFolder(out);
  EXPECT_EQ(out, u"before");
  SetCache(u"C:\\Cache");
  SetSystemFolder();
  system.GetSpecialFolder(32, out);
  EXPECT_EQ(out, u"C:\\Cache");
  system.GetSpecialFolder(9966, out);
  EXPECT_EQ(out, u"C:\\WINDOWS\\system32");
  machine.facts.Set(u"Recycle Bin", u"Info", u"3|4096");
  system.GetRecycleBinInfo(0, out);
  EXPECT_EQ(out, u"3|4096");
}

TEST_F(PubSystem, NoWindowIsFoundWhereThereAreNone) {
  platform::WindowHandle window = 77;
  system.FindWindowByTitle(u"TVX Help", window);
  EXPECT_EQ(window, 0);
}

TEST_F(PubSystem, AServiceThatIsNotThereDoesNothing) {
  const clsPubSystem none;
  Write("[S]\r\nk=1\r\n");
  Text out = u"before";
  platform::WindowHandle window = 77;
  none.ReadProfileString(kFile, u"S", u"k", out);
  none.WriteProfileString(kFile, u"S", u"k", u"2");
  none.GetSpecialFolder(32, out);
  none.GetRecycleBinInfo(0, out);
  none.GetUserTempFolder(out);
  none.BrowseForFolder(0, u"t", out);
  none.FindWindowByTitle(u"t", window);
  none.RunTarget(u"x", 3);
  none.OpenPath(u"x", 3);
  none.DeleteToRecycleBin(kFile);
  none.DeleteAtRestart(u"x");
  none.EmptyRecycleBin(0, 0);
  none.ShowFileProperties(0, u"x");
  none.SendWindowMessage(1, 2, 3, 4);
  none.PostWindowMessage(1, 2, 3, 4);
  none.SetTreeBackColor(1, 2);
  none.AttachListColorHook(1, true, 2, 3);
  EXPECT_EQ(out, u"before");
  EXPECT_EQ(window, 77);
  EXPECT_EQ(Read(), "[S]\r\nk=1\r\n");
  EXPECT_TRUE(machine.journal.Entries().empty());
}

}  // namespace
}  // namespace tavix
