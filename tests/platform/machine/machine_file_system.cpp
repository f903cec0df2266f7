#include "platform/machine/machine_file_system.h"

#include <gtest/gtest.h>

#include "platform/machine/memory_store.h"

namespace tavix::machine {
namespace {

class MachineFiles : public testing::Test {
 protected:
  void Drives(std::string_view lines) {
    TextError error;
    facts = MachineFacts(*MachineIni::Read("[Drives]\n" + std::string(lines), error), nullptr);
  }
  void File(const std::vector<Text>& names) { store.Make(names, EntryKind::File); }

  MemoryStore store;
  MachineFacts facts;
  std::optional<MachineFileSystem> files{std::in_place, store, facts};
};

TEST_F(MachineFiles, AreNoneOnADriveThatIsNotReady) {
  File({u"drives", u"E", u"a"});
  Drives("E=4,,not ready\n");
  EXPECT_FALSE(files->FolderExists(u"E:\\"));
  EXPECT_FALSE(files->FileExists(u"E:\\a"));
  EXPECT_FALSE(files->WriteFile(u"E:\\b", "x"));
  EXPECT_FALSE(files->DeleteFile(u"E:\\a", true));
  ASSERT_EQ(files->Drives().size(), 1U);
  EXPECT_FALSE(files->Drives()[0].ready);
}

TEST_F(MachineFiles, OfADriveThatIsNotReadyAreNotReachedByLinks) {
  File({u"drives", u"E", u"a"});
  store.Make({u"drives", u"C", u"l"}, EntryKind::Link).target = {false, {u"..", u"E", u"a"}};
  EXPECT_TRUE(files->FileExists(u"C:\\l"));
  Drives("E=4,,not ready\n");
  EXPECT_FALSE(files->FileExists(u"C:\\l"));
}

TEST_F(MachineFiles, LieOnDrivesWithoutALineOfTheirOwn) {
  File({u"drives", u"d", u"a"});
  File({u"drives", u"file"});
  File({u"drives", u"X"});
  Drives("C=2,System\n");
  const auto drives = files->Drives();
  ASSERT_EQ(drives.size(), 2U);
  EXPECT_EQ(drives[0].path, u"C:");
  EXPECT_EQ(drives[1].path, u"D:");
  EXPECT_EQ(drives[1].type, 2);
  EXPECT_TRUE(drives[1].ready);
  EXPECT_TRUE(files->FileExists(u"D:\\a"));
  EXPECT_FALSE(files->FolderExists(u"X:\\"));
}

TEST_F(MachineFiles, CanBeMadeOnADriveWithNothingOnIt) {
  Drives("D=2,Data\n");
  EXPECT_TRUE(files->FolderExists(u"D:"));
  EXPECT_EQ(files->Look(u"D:\\")->path, u"D:\\");
  int entries = 0;
  EXPECT_TRUE(files->List(u"D:\\", [&entries](const platform::DirectoryEntry&) { ++entries; }));
  EXPECT_EQ(entries, 0);
  EXPECT_FALSE(files->Look(u"D:\\a"));
  EXPECT_FALSE(files->DeleteFolder(u"D:\\", true));
  EXPECT_FALSE(files->SetAttributes(u"D:\\", 1));
  EXPECT_FALSE(files->CreateFolder(u"D:\\"));
  EXPECT_FALSE(store.Root()->Find(u"drives"));
  EXPECT_TRUE(files->CreateFolder(u"D:\\a"));
  EXPECT_TRUE(files->FolderExists(u"D:\\a"));
  EXPECT_FALSE(files->CreateFolder(u"E:\\a"));
}

TEST_F(MachineFiles, OfTheProgramLieInItsFolder) {
  File({u"app", u"tips.dll"});
  EXPECT_TRUE(files->FileExists(u"\\\\tavix\\app\\TIPS.dll"));
  EXPECT_EQ(files->Look(u"\\\\tavix\\app\\tips.dll")->path, u"\\\\tavix\\app\\tips.dll");
  EXPECT_FALSE(files->DeleteFolder(u"\\\\tavix\\app", true));
  EXPECT_FALSE(files->FileExists(u"\\\\tavix\\other\\tips.dll"));
}

TEST_F(MachineFiles, BesideDrivesAndProgramAreOutOfReach) {
  File({u"machine.ini"});
  File({u"recycle", u"a"});
  for (const TextView target : {u"machine.ini", u"recycle", u"drives"}) {
    store.Make({u"drives", u"C", u"l"}, EntryKind::Link).target = {true, {Text(target)}};
    EXPECT_FALSE(files->FileExists(u"C:\\l"));
    EXPECT_FALSE(files->FolderExists(u"C:\\l"));
    EXPECT_FALSE(files->WriteFile(u"C:\\l", "x"));
    EXPECT_FALSE(files->FileExists(u"C:\\l\\a"));
  }
  store.Make({u"drives", u"C", u"l"}, EntryKind::Link).target = {true, {u"drives", u"C"}};
  EXPECT_TRUE(files->FolderExists(u"C:\\l\\l\\l"));
}

TEST_F(MachineFiles, AreReadOnlyOnceOnlyWhereTheyStillAre) {
  store.Root()->WriteFile(u"attributes.ini", "[Attributes]\nC:\\f\\gone=1\nC:\\f\\a=2081\n");
  File({u"drives", u"C", u"f", u"a"});
  files.emplace(store, facts);
  EXPECT_FALSE(files->DeleteFolder(u"C:\\f", false));
  EXPECT_TRUE(files->SetAttributes(u"C:\\f\\a", platform::kHidden));
  EXPECT_EQ(files->Look(u"C:\\f\\a")->attributes, 2050U);
  EXPECT_TRUE(files->DeleteFolder(u"C:\\f", false));
}

TEST_F(MachineFiles, SaveTheirAttributesAtTheEnd) {
  File({u"drives", u"C", u"a"});
  EXPECT_TRUE(files->SetAttributes(u"C:\\A", platform::kHidden));
  files.reset();
  EXPECT_EQ(store.Root()->ReadFile(u"attributes.ini"), "[Attributes]\nC:\\a=2\n");
  files.emplace(store, facts);
  EXPECT_TRUE(files->MoveFile(u"C:\\a", u"C:\\B"));
  EXPECT_TRUE(files->Save());
  EXPECT_EQ(store.Root()->ReadFile(u"attributes.ini"), "[Attributes]\nC:\\B=2\n");
  EXPECT_TRUE(files->DeleteFile(u"C:\\b", false));
  EXPECT_TRUE(files->Save());
  EXPECT_EQ(store.Root()->ReadFile(u"attributes.ini"), "[Attributes]\n");
}

TEST_F(MachineFiles, GoToTheBinWithoutAttributes) {
  File({u"drives", u"C", u"a"});
  RecycleBin bin(store);
  EXPECT_TRUE(files->SetAttributes(u"C:\\a", platform::kReadOnly));
  EXPECT_FALSE(files->Recycle(u"C:\\none", bin));
  EXPECT_FALSE(files->Recycle(u"C:\\", bin));
  EXPECT_TRUE(files->Recycle(u"C:\\A", bin));
  EXPECT_TRUE(store.Open({u"recycle"})->Find(u"a"));
  EXPECT_TRUE(files->WriteFile(u"C:\\a", "x"));
  EXPECT_EQ(files->Look(u"C:\\a")->attributes, 0U);
}

TEST_F(MachineFiles, VisitNothingWhenAFolderCantBeRead) {
  File({u"drives", u"C", u"f", u"a"});
  store.faults.Fail(u"Read", u"f");
  EXPECT_FALSE(files->List(u"C:\\f", [](const platform::DirectoryEntry&) { ADD_FAILURE(); }));
}

}  // namespace
}  // namespace tavix::machine
