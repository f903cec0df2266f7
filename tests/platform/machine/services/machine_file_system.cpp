#include "platform/machine/services/machine_file_system.h"

#include <gtest/gtest.h>

#include "doubles/memory_store.h"
#include "support/case.h"
#include "support/found_item.h"

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
  EXPECT_EQ(files->FolderExists(u"E:\\"), false);
  EXPECT_EQ(files->FileExists(u"E:\\a"), false);
  EXPECT_FALSE(files->WriteFile(u"E:\\b", "x"));
  EXPECT_FALSE(files->DeleteFile(u"E:\\a", true));
  ASSERT_EQ(files->Drives().size(), 1U);
  EXPECT_FALSE(files->Drives()[0].ready);
}

TEST_F(MachineFiles, OfADriveThatIsNotReadyAreNotReachedByLinks) {
  File({u"drives", u"E", u"a"});
  store.Make({u"drives", u"C", u"l"}, EntryKind::Link).target = {false, {u"..", u"E", u"a"}};
  EXPECT_EQ(files->FileExists(u"C:\\l"), true);
  Drives("E=4,,not ready\n");
  EXPECT_EQ(files->FileExists(u"C:\\l"), false);
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
  EXPECT_EQ(files->FileExists(u"D:\\a"), true);
  EXPECT_EQ(files->FolderExists(u"X:\\"), false);
}

TEST_F(MachineFiles, OfANetworkDriveAreReachedThoughTheListOfDrivesDoesntAskIt) {
  File({u"drives", u"N", u"a"});
  Drives("C=2,System\nN=3,Far\n");
  const auto drives = files->Drives();
  ASSERT_EQ(drives.size(), 2U);
  EXPECT_TRUE(drives[0].ready);
  EXPECT_EQ(drives[1].type, platform::kNetworkDrive);
  EXPECT_FALSE(drives[1].ready);
  EXPECT_EQ(drives[1].volumeName, u"");
  EXPECT_TRUE(files->IsDriveReady(u'N'));
  EXPECT_EQ(files->FileExists(u"N:\\a"), true);
}

TEST_F(MachineFiles, CanBeMadeOnADriveWithNothingOnIt) {
  Drives("D=2,Data\n");
  EXPECT_EQ(files->FolderExists(u"D:"), true);
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
  EXPECT_EQ(files->FolderExists(u"D:\\a"), true);
  EXPECT_FALSE(files->CreateFolder(u"E:\\a"));
}

TEST_F(MachineFiles, OfTheProgramLieInItsFolder) {
  File({u"app", u"tips.dll"});
  EXPECT_EQ(files->FileExists(u"\\\\tavix\\app\\TIPS.dll"), true);
  EXPECT_EQ(files->Look(u"\\\\tavix\\app\\tips.dll")->path, u"\\\\tavix\\app\\tips.dll");
  EXPECT_FALSE(files->DeleteFolder(u"\\\\tavix\\app", true));
}

TEST_F(MachineFiles, OfAnotherComputerCantBeTold) {
  for (const TextView path :
       {u"\\\\tavix\\other\\tips.dll", u"\\\\server\\share", u"//server/share/a/../b."}) {
    SCOPED_TRACE(Case(path));
    EXPECT_EQ(files->FileExists(path), std::nullopt) << testing::PrintToString(Text(path));
    EXPECT_EQ(files->FolderExists(path), std::nullopt);
    EXPECT_FALSE(files->Look(path));
  }
  for (const TextView path : {u"\\\\server", u"\\\\.\\pipe\\a", u"\\\\?\\C:\\a", u"\\\\server\\share\\a?",
                              u"\\\\tavix\\app\\a?", u"\\\\tavix\\app\\none"}) {
    EXPECT_EQ(files->FileExists(path), false) << testing::PrintToString(Text(path));
  }
}

TEST_F(MachineFiles, BelowWhatCantBeFoundCantBeTold) {
  File({u"drives", u"C", u"Folder", u"a"});
  store.Make({u"drives", u"C", u"link"}, EntryKind::Link).target = {true, {u"drives", u"C", u"folder"}};
  store.faults.Fail(u"Find", u"Folder");
  EXPECT_EQ(files->FileExists(u"C:\\Folder\\a"), true) << "its folder is opened at once";
  for (const TextView path : {u"C:\\FOLDER\\A", u"C:\\FOLDER\\none", u"C:\\link\\a", u"C:\\Folder"}) {
    EXPECT_EQ(files->FileExists(path), std::nullopt) << testing::PrintToString(Text(path));
    EXPECT_EQ(files->FolderExists(path), std::nullopt);
  }
  EXPECT_FALSE(files->CreateFolder(u"C:\\FOLDER")) << "a second one";
  EXPECT_EQ(files->FileExists(u"C:\\none"), false);
}

TEST_F(MachineFiles, OfADriveThatIsntReadyAreMissing) {
  facts.Set(u"Drives", u"E", u"2,,not ready");
  EXPECT_EQ(files->FileExists(u"E:\\a"), false);
  EXPECT_EQ(files->FileExists(u"X:\\a"), false);
}

TEST_F(MachineFiles, BesideDrivesAndProgramAreOutOfReach) {
  File({u"machine.ini"});
  File({u"recycle", u"a"});
  for (const TextView target : {u"machine.ini", u"recycle", u"drives"}) {
    SCOPED_TRACE(Case(target));
    store.Make({u"drives", u"C", u"l"}, EntryKind::Link).target = {true, {Text(target)}};
    EXPECT_EQ(files->FileExists(u"C:\\l"), false);
    EXPECT_EQ(files->FolderExists(u"C:\\l"), false);
    EXPECT_FALSE(files->WriteFile(u"C:\\l", "x"));
    EXPECT_EQ(files->FileExists(u"C:\\l\\a"), false);
  }
  store.Make({u"drives", u"C", u"l"}, EntryKind::Link).target = {true, {u"drives", u"C"}};
  EXPECT_EQ(files->FolderExists(u"C:\\l\\l\\l"), true);
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

TEST_F(MachineFiles, LeftToTheShellGoToTheBinFromWhereTheyWereOpened) {
  File({u"drives", u"C", u"f", u"a"});
  File({u"drives", u"C", u"g", u"a"});
  RecycleBin bin(store);
  auto item = OpenFoundItem(*files, u"C:\\", u"f\\a");
  ASSERT_NE(item, nullptr);
  EXPECT_TRUE(item->LeaveToShell());
  ASSERT_TRUE(files->Rename(u"C:\\f", u"aside"));
  ASSERT_TRUE(files->Rename(u"C:\\g", u"f"));
  EXPECT_TRUE(files->Recycle(u"C:\\F\\.\\A", bin));
  EXPECT_EQ(files->FileExists(u"C:\\f\\a"), true);
  EXPECT_EQ(files->FileExists(u"C:\\aside\\a"), false);
  EXPECT_FALSE(files->Recycle(u"C:\\f\\a", bin)) << "the item has gone";
  item.reset();
  EXPECT_TRUE(files->Recycle(u"C:\\f\\a", bin)) << "a path like any other again";
}

TEST_F(MachineFiles, VisitNothingWhenAFolderCantBeRead) {
  File({u"drives", u"C", u"f", u"a"});
  store.faults.Fail(u"Read", u"f");
  EXPECT_FALSE(files->List(u"C:\\f", [](const platform::DirectoryEntry&) { ADD_FAILURE(); }));
}

}  // namespace
}  // namespace tavix::machine
