#include "platform/machine/services/machine_shell.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "doubles/memory_files.h"
#include "doubles/memory_host.h"
#include "doubles/memory_shell.h"
#include "doubles/memory_store.h"
#include "platform/machine/formats/machine_facts.h"
#include "platform/machine/services/journal.h"

namespace tavix::machine {
namespace {

class MachineShellTest : public testing::Test {
 protected:
  std::vector<Text> Ops() {
    std::vector<Text> ops;
    for (const JournalEntry& entry : host.journal.Entries()) ops.push_back(entry.op);
    return ops;
  }
  MemoryHost host;
};

TEST_F(MachineShellTest, NotesEveryCallWhetherItWorksOrNot) {
  host.files.AddFile(u"C:\\a");
  EXPECT_TRUE(host.shell.RunTarget(u"regedit.exe", 3));
  EXPECT_FALSE(host.shell.RunTarget(u" ", 3));
  EXPECT_TRUE(host.shell.OpenPath(u"C:\\", 3));
  EXPECT_FALSE(host.shell.OpenPath(u"C:\\none", 3));
  EXPECT_TRUE(host.shell.RunHidden(u"cmd /c x"));
  EXPECT_TRUE(host.shell.ShowFileProperties(0, u"C:\\a"));
  EXPECT_FALSE(host.shell.ShowFileProperties(0, u""));
  EXPECT_FALSE(host.shell.DeleteToRecycleBin(u"C:\\none"));
  EXPECT_FALSE(host.shell.DeleteAtRestart(u"relative"));
  EXPECT_EQ(Ops(), (std::vector<Text>{u"RunTarget", u"RunTarget", u"OpenPath", u"OpenPath", u"RunHidden",
                                      u"ShowFileProperties", u"ShowFileProperties", u"DeleteToRecycleBin",
                                      u"DeleteAtRestart"}));
  EXPECT_EQ(host.journal.Entries()[0].Json(),
            "{\"op\":\"RunTarget\",\"target\":\"regedit.exe\",\"style\":3}");
  EXPECT_EQ(host.journal.Entries()[2].Json(), "{\"op\":\"OpenPath\",\"path\":\"C:\\\\\",\"style\":3}");
  EXPECT_EQ(host.journal.Entries()[4].Json(), "{\"op\":\"RunHidden\",\"target\":\"cmd /c x\"}");
  EXPECT_EQ(host.journal.Entries()[5].Json(), "{\"op\":\"ShowFileProperties\",\"path\":\"C:\\\\a\"}");
}

TEST_F(MachineShellTest, FailsOnDemand) {
  host.files.AddFile(u"C:\\a");
  host.shell.faults.Fail(u"DeleteToRecycleBin", u"C:\\a");
  EXPECT_FALSE(host.shell.DeleteToRecycleBin(u"C:\\a"));
  EXPECT_EQ(host.files.FileExists(u"C:\\a"), true);
  EXPECT_EQ(Ops(), std::vector<Text>{u"DeleteToRecycleBin"});
}

TEST_F(MachineShellTest, CountsTheBinUnlessTheAnswerIsFixed) {
  EXPECT_EQ(host.shell.RecycleBinInfo(), u"0|0");
  host.files.AddFile(u"C:\\a", {"12345"});
  EXPECT_TRUE(host.shell.DeleteToRecycleBin(u"C:\\a"));
  EXPECT_EQ(host.shell.RecycleBinInfo(), u"1|5");
  EXPECT_TRUE(host.shell.EmptyRecycleBin(0));
  EXPECT_EQ(host.shell.RecycleBinInfo(), u"0|0");
  host.facts.Set(u"Recycle Bin", u"Info", u"3|99999999999");
  EXPECT_EQ(host.shell.RecycleBinInfo(), u"3|99999999999");
  EXPECT_TRUE(host.shell.EmptyRecycleBin(0));
  EXPECT_EQ(host.shell.RecycleBinInfo(), u"0|0");
  host.facts.Set(u"Recycle Bin", u"Info", u"-");
  EXPECT_FALSE(host.shell.RecycleBinInfo());
  EXPECT_TRUE(host.shell.EmptyRecycleBin(0));
  EXPECT_FALSE(host.shell.RecycleBinInfo());
}

TEST_F(MachineShellTest, ListsWhatIsToBeDeletedAtRestart) {
  EXPECT_TRUE(host.shell.DeleteAtRestart(u"C:\\index.dat"));
  EXPECT_TRUE(host.shell.DeleteAtRestart(u"C:\\ä.dat"));
  EXPECT_FALSE(host.shell.DeleteAtRestart(u""));
  EXPECT_EQ(host.store.Root()->ReadFile(u"restart.txt"), "C:\\index.dat\nC:\\ä.dat\n");
}

TEST_F(MachineShellTest, AnswersFromTheFacts) {
  EXPECT_FALSE(host.shell.SpecialFolderByNumber(32));
  EXPECT_FALSE(host.shell.SpecialFolderByName(u"Recent"));
  EXPECT_FALSE(host.shell.UserTempFolder());
  EXPECT_FALSE(host.shell.SystemTempFolder());
  EXPECT_FALSE(host.shell.EnvironmentVariable(u"WinDir"));
  host.facts.Set(u"Folders", u"32", u"C:\\Cache\\");
  host.facts.Set(u"Special Folders", u"Recent", u"C:\\Recent");
  host.facts.Set(u"Special Folders", u"10", u"C:\\Desktop");
  host.facts.Set(u"Temporary Folders", u"User", u"C:\\Temp");
  host.facts.Set(u"Temporary Folders", u"System", u"C:\\Windows\\Temp");
  host.facts.Set(u"Environment", u"WinDir", u"C:\\Windows");
  EXPECT_EQ(host.shell.SpecialFolderByNumber(32), u"C:\\Cache");
  EXPECT_EQ(host.shell.SpecialFolderByName(u"recent"), u"C:\\Recent");
  EXPECT_EQ(host.shell.SpecialFolderByName(u"10"), u"C:\\Desktop");
  EXPECT_EQ(host.shell.UserTempFolder(), u"C:\\Temp");
  EXPECT_EQ(host.shell.SystemTempFolder(), u"C:\\Windows\\Temp");
  EXPECT_EQ(host.shell.EnvironmentVariable(u"windir"), u"C:\\Windows");
}

TEST_F(MachineShellTest, NamesEveryFolderOfTheFactsOnce) {
  EXPECT_THAT(host.shell.NamedFolders(), testing::Optional(testing::IsEmpty()));
  host.facts.Set(u"Environment", u"WinDir", u"C:\\Windows\\");
  host.facts.Set(u"Environment", u"USERNAME", u"Ann");
  host.facts.Set(u"Folders", u"32", u"C:\\Cache\\");
  host.facts.Set(u"Folders", u"40", u"C:\\Users\\Ann");
  host.facts.Set(u"Special Folders", u"Recent", u"C:\\Recent");
  host.facts.Set(u"Special Folders", u"7", u"c:\\recent");
  host.facts.Set(u"Special Folders", u"8", u"");
  host.facts.Set(u"Temporary Folders", u"User", u"D:\\");
  EXPECT_THAT(host.shell.NamedFolders(),
              testing::Optional(testing::UnorderedElementsAre(u"C:\\Windows", u"C:\\Cache", u"C:\\Users\\Ann",
                                                              u"C:\\Recent", u"D:\\")));
  host.shell.faults.Fail(u"NamedFolders");
  EXPECT_EQ(host.shell.NamedFolders(), std::nullopt);
}

TEST_F(MachineShellTest, ExpandsVariablesThatAreSet) {
  host.facts.Set(u"Environment", u"WinDir", u"C:\\Windows");
  const std::pair<TextView, TextView> cases[] = {
      {u"", u""},
      {u"plain", u"plain"},
      {u"%windir%\\a", u"C:\\Windows\\a"},
      {u"%WinDir%%WinDir%", u"C:\\WindowsC:\\Windows"},
      {u"%none%\\a", u"%none%\\a"},
      {u"100% %WinDir%", u"100% C:\\Windows"},
      {u"%", u"%"},
      {u"%%", u"%%"},
      {u"%WinDir", u"%WinDir"},
  };
  for (const auto& [text, expected] : cases) EXPECT_EQ(host.shell.ExpandEnvironment(text), expected);
}

TEST_F(MachineShellTest, ReadsShortcutsThatAreOnesOnly) {
  host.files.AddFile(u"C:\\a.lnk", {"no shortcut"});
  EXPECT_FALSE(host.shell.OpenShortcut(u"C:\\a.lnk"));
  EXPECT_FALSE(host.shell.OpenShortcut(u"C:\\none.lnk"));
  // A header without flags: it names no path.
  std::string bare("\x4C\0\0\0\x01\x14\x02\0\0\0\0\0\xC0\0\0\0\0\0\0\x46", 20);
  bare.resize(0x4C);
  host.files.AddFile(u"C:\\b.lnk", {bare});
  const auto shortcut = host.shell.OpenShortcut(u"C:\\b.lnk");
  ASSERT_TRUE(shortcut);
  EXPECT_TRUE(shortcut->paths.empty());
  EXPECT_FALSE(shortcut->others);
}

}  // namespace
}  // namespace tavix::machine
