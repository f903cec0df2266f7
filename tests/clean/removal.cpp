#include "clean/removal.h"

#include "advanced/advanced_walker.h"
#include "clean/clean_test.h"
#include "doubles/memory_file_system.h"
#include "doubles/memory_trust.h"
#include "forms/main_form.h"
#include "scan/walkers.h"
#include "support/case.h"

namespace tavix::mdlPubSelf {
namespace {

class Removal : public CleanTest {};

TEST_F(Removal, MethodsOfAFile) {
  const struct {
    TextView method;
    bool gone, recycled, saved;
  } table[] = {{u"D", true, false, false}, {u"R", true, true, false},   {u"S", true, false, true},
               {u"", false, false, false}, {u"d", false, false, false}, {u"X", false, false, false}};
  for (const auto& row : table) {
    CleaningMethod = row.method;
    machine.journal.Clear();
    machine.files.DeleteFile(u"C:\\TVXBak\\a.txt", true);
    ClearResults();
    AddFileRow(u"a.txt");
    frmPubMain.sbtClean.Click();
    EXPECT_EQ(!FileThere(u"C:\\Work\\a.txt"), row.gone) << Narrow(row.method);
    EXPECT_EQ(Calls() == std::vector<Text>{u"DeleteToRecycleBin"}, row.recycled) << Narrow(row.method);
    EXPECT_EQ(FileThere(u"C:\\TVXBak\\a.txt"), row.saved) << Narrow(row.method);
    EXPECT_EQ(ResultCount(), row.gone ? 0 : 1) << Narrow(row.method);
    EXPECT_EQ(Sum(), row.gone ? u"Sum: 1 item, 2. KB cleaned." : u"Sum: 0 item, 0. KB cleaned.");
  }
}

TEST_F(Removal, SavingTakesTheSuffixOneAndNoOther) {
  CleaningMethod = u"S";
  for (int round = 0; round < 3; ++round) {
    ClearResults();
    machine.files.AddFile(u"C:\\Work\\a.txt", {.content = std::string(1, static_cast<char>('0' + round))});
    Add(u"F", u"C:\\Work", u"a.txt", u"1.");
    frmPubMain.sbtClean.Click();
  }
  EXPECT_EQ(machine.files.ReadFile(u"C:\\TVXBak\\a.txt"), "0");
  EXPECT_EQ(machine.files.ReadFile(u"C:\\TVXBak\\a.txt.1"), "1");
  EXPECT_EQ(machine.files.ReadFile(u"C:\\Work\\a.txt"), "2");
  ASSERT_EQ(ResultCount(), 1);
  EXPECT_TRUE(ResultRows()[0].checked);
  EXPECT_EQ(Sum(), u"Sum: 0 item, 0. KB cleaned.");
}

TEST_F(Removal, AMissingBackupFolderLeavesTheFileAndItsRow) {
  CleaningMethod = u"S";
  BackupFolder = u"C:\\Nowhere";
  AddFileRow(u"a.txt");
  frmPubMain.sbtClean.Click();
  EXPECT_TRUE(FileThere(u"C:\\Work\\a.txt"));
  EXPECT_EQ(ResultCount(), 1);
}

TEST_F(Removal, MethodsOfAFolder) {
  for (const TextView method : {u"D", u"R", u"S", u"X"}) {
    CleaningMethod = method;
    ClearResults();
    AddFolderRow(u"empty");
    frmPubMain.sbtClean.Click();
    EXPECT_EQ(FolderThere(u"C:\\Work\\empty"), method == u"X") << Narrow(method);
    EXPECT_EQ(FolderThere(u"C:\\TVXBak\\empty"), method == u"S" || method == u"X") << "once saved it stays";
    EXPECT_EQ(ResultCount(), method == u"X" ? 1 : 0);
  }
  machine.files.DeleteFolder(u"C:\\TVXBak\\empty", true);
}

TEST_F(Removal, ASavedFolderTakesTheSuffixOneAndGoesEvenWithoutACopy) {
  CleaningMethod = u"S";
  for (int round = 0; round < 3; ++round) {
    AddFolderRow(u"empty");
    frmPubMain.sbtClean.Click();
    EXPECT_FALSE(FolderThere(u"C:\\Work\\empty")) << round;
    EXPECT_EQ(ResultCount(), 0) << round;
  }
  EXPECT_TRUE(FolderThere(u"C:\\TVXBak\\empty"));
  EXPECT_TRUE(FolderThere(u"C:\\TVXBak\\empty.1"));
  EXPECT_FALSE(FolderThere(u"C:\\TVXBak\\empty.2"));
  BackupFolder = u"C:\\Nowhere";
  AddFolderRow(u"empty");
  frmPubMain.sbtClean.Click();
  EXPECT_FALSE(FolderThere(u"C:\\Work\\empty"));
}

TEST_F(Removal, AFolderThatWasFilledSinceTheScanStaysWithItsContent) {
  for (const TextView method : {u"D", u"R", u"S"}) {
    CleaningMethod = method;
    ClearResults();
    AddFolderRow(u"full");
    machine.files.AddFile(u"C:\\Work\\full\\inner\\x.txt", {.content = "x"});
    frmPubMain.sbtClean.Click();
    EXPECT_TRUE(FileThere(u"C:\\Work\\full\\inner\\x.txt")) << Narrow(method);
    EXPECT_EQ(ResultCount(), 1) << Narrow(method);
    EXPECT_EQ(Sum(), u"Sum: 0 item, 0. KB cleaned.") << Narrow(method);
  }
  EXPECT_FALSE(FolderThere(u"C:\\TVXBak\\full")) << "no shell of it is made either";
}

TEST_F(Removal, WhatIsReadOnlyGoesUnderEveryMethod) {
  for (const TextView method : {u"D", u"R", u"S"}) {
    CleaningMethod = method;
    ClearResults();
    machine.files.DeleteFolder(u"C:\\TVXBak", true);
    machine.files.AddFolder(u"C:\\TVXBak");
    machine.files.AddFile(u"C:\\Work\\a.txt", {.content = "a", .attributes = platform::kReadOnly});
    machine.files.AddFile(u"C:\\Work\\dump", {.content = "d", .attributes = platform::kReadOnly});
    machine.files.AddFile(u"C:\\Work\\empty\\none", {.attributes = platform::kReadOnly});
    Add(u"F", u"C:\\Work", u"a.txt", u"1.");
    Add(u"FT: C:\\Work\\dump", u"System Drive", u"Dump", u"1.");
    Add(u"P", u"C:\\Work", u"empty", u"0.");
    frmPubMain.sbtClean.Click();
    EXPECT_EQ(ResultCount(), 0) << Narrow(method);
    EXPECT_FALSE(FileThere(u"C:\\Work\\a.txt")) << Narrow(method);
    EXPECT_FALSE(FileThere(u"C:\\Work\\dump")) << Narrow(method);
    EXPECT_FALSE(FolderThere(u"C:\\Work\\empty")) << Narrow(method);
    EXPECT_EQ(FileThere(u"C:\\TVXBak\\a.txt") && FileThere(u"C:\\TVXBak\\dump"), method == u"S");
  }
}

TEST_F(Removal, AFolderOfFoldersAndFilesWithoutContentGoesWhole) {
  for (const TextView method : {u"D", u"R", u"S"}) {
    CleaningMethod = method;
    ClearResults();
    AddFolderRow(u"hollow");
    machine.files.AddFile(u"C:\\Work\\hollow\\inner\\0.txt", {.attributes = platform::kReadOnly});
    frmPubMain.sbtClean.Click();
    EXPECT_FALSE(FolderThere(u"C:\\Work\\hollow")) << Narrow(method);
    EXPECT_EQ(ResultCount(), 0) << Narrow(method);
  }
}

TEST_F(Removal, AFolderThatCannotBeReadWholeStays) {
  CleaningMethod = u"D";
  AddFolderRow(u"closed");
  machine.files.AddFile(u"C:\\Work\\closed\\inner\\0.txt");
  machine.files.faults.Fail(u"List", u"C:\\Work\\closed\\inner");
  frmPubMain.sbtClean.Click();
  EXPECT_TRUE(FileThere(u"C:\\Work\\closed\\inner\\0.txt"));
  EXPECT_EQ(ResultCount(), 1);
}

TEST_F(Removal, AFolderThatGotALinkStaysAndOfALinkTheLinkAloneGoes) {
  CleaningMethod = u"D";
  machine.files.AddFile(u"C:\\Precious\\keep.txt");
  AddFolderRow(u"full");
  machine.files.AddLink(u"C:\\Work\\full\\link", u"C:\\Precious");
  machine.files.AddLink(u"C:\\Work\\place", u"C:\\Precious");
  Add(u"P", u"C:\\Work", u"place", u"0.");
  frmPubMain.sbtClean.Click();
  EXPECT_TRUE(machine.fileSystem.Look(u"C:\\Work\\full\\link").has_value());
  EXPECT_FALSE(machine.fileSystem.Look(u"C:\\Work\\place").has_value());
  EXPECT_TRUE(FileThere(u"C:\\Precious\\keep.txt"));
}

// The walk follows the link and lists the files; the clean doesn't follow it.
TEST_F(Removal, WhatIsReachedThroughALinkBelowTheWalksStartStays) {
  for (const TextView method : {u"D", u"R", u"S"}) {
    CleaningMethod = method;
    ClearResults();
    machine.files.AddFile(u"C:\\Precious\\in\\keep.txt", {.content = "x"});
    machine.files.AddFolder(u"C:\\Precious\\in\\empty");
    machine.files.AddLink(u"C:\\Work\\a\\link", u"C:\\Precious");
    WalkFolderFiles(u"C:\\Work", u"t");
    WalkAdvancedFolder(u"C:\\Work", u"|Empty Folders and Files|", true);
    ASSERT_EQ(ResultCount(), 2) << Narrow(method);
    frmPubMain.sbtClean.Click();
    EXPECT_TRUE(FileThere(u"C:\\Precious\\in\\keep.txt")) << Narrow(method);
    EXPECT_TRUE(FolderThere(u"C:\\Precious\\in\\empty")) << Narrow(method);
    EXPECT_EQ(ResultCount(), 2) << Narrow(method);
    EXPECT_EQ(Sum(), u"Sum: 0 item, 0. KB cleaned.") << Narrow(method);
  }
}

// Users move their temporary folder to another disk and put a link in its place.
TEST_F(Removal, TheFolderWhereTheWalkBeganAndThoseAboveMayBeLinks) {
  for (const TextView method : {u"D", u"R", u"S"}) {
    CleaningMethod = method;
    ClearResults();
    machine.files.AddFile(u"C:\\Far\\Temp\\in\\f.txt", {.content = "x"});
    machine.files.AddLink(u"C:\\Near", u"C:\\Far");
    machine.files.AddLink(u"C:\\Far\\Moved", u"C:\\Far\\Temp");
    WalkFolderFiles(u"C:\\Near\\Moved", u"t");
    ASSERT_EQ(ResultCount(), 1) << Narrow(method);
    frmPubMain.sbtClean.Click();
    EXPECT_FALSE(FileThere(u"C:\\Far\\Temp\\in\\f.txt")) << Narrow(method);
    EXPECT_EQ(ResultCount(), 0) << Narrow(method);
  }
}

TEST_F(Removal, AFolderSwappedForALinkAfterTheScanLosesNothingThere) {
  for (const TextView method : {u"D", u"R", u"S"}) {
    CleaningMethod = method;
    ClearResults();
    machine.files.AddFile(u"C:\\Victim\\f.txt", {.content = "victim"});
    machine.files.AddFile(u"C:\\Work\\a\\f.txt", {.content = "x"});
    WalkFolderFiles(u"C:\\Work", u"t");
    ASSERT_EQ(ResultCount(), 1) << Narrow(method);
    machine.files.AddLink(u"C:\\Work\\a", u"C:\\Victim");
    frmPubMain.sbtClean.Click();
    EXPECT_EQ(machine.files.ReadFile(u"C:\\Victim\\f.txt"), "victim") << Narrow(method);
    EXPECT_EQ(ResultCount(), 1) << Narrow(method);
    machine.files.DeleteFolder(u"C:\\Work\\a", true);
  }
}

// Both orders: the file's folder is still open when its own row comes, or the folder goes first.
TEST_F(Removal, AFileAndTheFolderThatItLiesInGoInOneClean) {
  for (const TextView method : {u"D", u"R", u"S"}) {
    for (const bool fileFirst : {true, false}) {
      SCOPED_TRACE(Case(method) + " " + Case(fileFirst));
      CleaningMethod = method;
      ClearResults();
      machine.files.AddFile(u"C:\\Work\\in\\none.txt");
      if (!fileFirst) Add(u"F", u"C:\\Work\\in", u"none.txt", u"0.");
      Add(u"P", u"C:\\Work", u"in", u"0.");
      if (fileFirst) Add(u"F", u"C:\\Work\\in", u"none.txt", u"0.");
      frmPubMain.sbtClean.Click();
      EXPECT_FALSE(FolderThere(u"C:\\Work\\in"));
      EXPECT_EQ(ResultCount(), 0);
      machine.files.DeleteFile(u"C:\\TVXBak\\none.txt", true);
      machine.files.DeleteFolder(u"C:\\TVXBak\\in", true);
    }
  }
}

TEST_F(Removal, WhatCantBeLeftToTheShellStays) {
  CleaningMethod = u"R";
  AddFileRow(u"a.txt");
  AddFolderRow(u"empty");
  machine.files.faults.Fail(u"LeaveToShell");
  frmPubMain.sbtClean.Click();
  EXPECT_TRUE(FileThere(u"C:\\Work\\a.txt"));
  EXPECT_TRUE(FolderThere(u"C:\\Work\\empty"));
  EXPECT_EQ(Calls(), std::vector<Text>());
  EXPECT_EQ(ResultCount(), 2);
  EXPECT_EQ(Sum(), u"Sum: 0 item, 0. KB cleaned.");
}

// A link whose target is gone stands where it is, though no file or folder exists by its path.
TEST_F(Removal, ALinkToNothingThatStaysKeepsItsRow) {
  for (const TextView method : {u"D", u"R", u"S"}) {
    CleaningMethod = method;
    ClearResults();
    machine.files.AddFolder(u"C:\\Far\\in");
    machine.files.AddLink(u"C:\\Far\\in\\file", u"C:\\gone.txt");
    machine.files.AddLink(u"C:\\Far\\in\\folder", u"C:\\Gone");
    machine.files.AddLink(u"C:\\Work\\a\\link", u"C:\\Far");
    for (const TextView tag : {u"F", u"P"}) {
      Add(tag, u"C:\\Work\\a\\link\\in", tag == u"F" ? u"file" : u"folder", u"1.");
      SetWalkStart(frmPubMain.lsvResult.Row(ResultCount()), TextView(u"C:\\Work").size());
    }
    frmPubMain.sbtClean.Click();
    EXPECT_TRUE(machine.fileSystem.Look(u"C:\\Far\\in\\file")) << Narrow(method);
    EXPECT_TRUE(machine.fileSystem.Look(u"C:\\Far\\in\\folder")) << Narrow(method);
    EXPECT_EQ(ResultCount(), 2) << Narrow(method);
    EXPECT_EQ(Sum(), u"Sum: 0 item, 0. KB cleaned.") << Narrow(method);
  }
}

TEST_F(Removal, ALinkToNothingGoesWithItsRow) {
  for (const TextView method : {u"D", u"R", u"S"}) {
    CleaningMethod = method;
    ClearResults();
    machine.files.AddLink(u"C:\\Work\\dead.lnk", u"C:\\gone.txt");
    Add(u"F", u"C:\\Work", u"dead.lnk", u"1.");
    frmPubMain.sbtClean.Click();
    EXPECT_FALSE(machine.fileSystem.Look(u"C:\\Work\\dead.lnk")) << Narrow(method);
    EXPECT_EQ(ResultCount(), 0) << Narrow(method);
  }
}

// Another user may have chosen this backup folder to get files into the program folders.
TEST_F(Removal, WithRaisedRightsNothingIsSavedAmongThePrograms) {
  CleaningMethod = u"S";
  BackupFolder = u"C:\\Program Files\\App";
  SetWindows();
  SetProgramFiles();
  machine.files.AddFolder(BackupFolder);
  for (const bool elevated : {true, false}) {
    machine.trust.elevated = elevated;
    ClearResults();
    AddFileRow(u"version.dll");
    AddFolderRow(u"empty");
    frmPubMain.sbtClean.Click();
    EXPECT_EQ(FileThere(u"C:\\Work\\version.dll"), elevated);
    EXPECT_EQ(FolderThere(u"C:\\Work\\empty"), elevated);
    EXPECT_EQ(ResultCount(), elevated ? 2 : 0);
  }
}

TEST_F(Removal, ANamedFileGoesByTheMethodAndIsSavedUnderItsOwnName) {
  CleaningMethod = u"S";
  machine.files.AddFile(u"C:\\WINDOWS\\MEMORY.DMP", {.content = "dump"});
  Add(u"FT: C:\\WINDOWS\\MEMORY.DMP", u"C:\\WINDOWS", u"Memory Dump", u"1.5");
  frmPubMain.sbtClean.Click();
  EXPECT_FALSE(FileThere(u"C:\\WINDOWS\\MEMORY.DMP"));
  EXPECT_EQ(machine.files.ReadFile(u"C:\\TVXBak\\MEMORY.DMP"), "dump");
  EXPECT_EQ(Sum(), u"Sum: 1 item, 1.5 KB cleaned.");
}

TEST_F(Removal, AVanishedTargetCountsAsCleaned) {
  Add(u"F", u"C:\\Work", u"gone.txt", u"3.");
  Add(u"P", u"C:\\Work", u"gone", u"0.");
  Add(u"FT: C:\\gone.dmp", u"C:\\", u"x", u"0");
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(ResultCount(), 0);
  EXPECT_EQ(Sum(), u"Sum: 3 items, 3. KB cleaned.");
}

TEST_F(Removal, ALockedFileStaysTickedAndTheNextCleanTriesAgain) {
  AddFileRow(u"locked.txt");
  machine.files.faults.Fail(u"DeleteFile", u"C:\\Work\\locked.txt");
  frmPubMain.sbtClean.Click();
  ASSERT_EQ(ResultCount(), 1);
  EXPECT_TRUE(ResultRows()[0].checked);
  EXPECT_EQ(Sum(), u"Sum: 0 item, 0. KB cleaned.");
  machine.files.faults.Clear();
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(ResultCount(), 0);
}

TEST_F(Removal, AFileInTheRootOfADriveIsFoundWithItsTwoBackslashes) {
  machine.files.AddFile(u"C:\\root.tmp");
  Add(u"F", u"C:\\", u"root.tmp", u"0.");
  frmPubMain.sbtClean.Click();
  EXPECT_FALSE(FileThere(u"C:\\root.tmp"));
  EXPECT_EQ(ResultCount(), 0);
}

TEST_F(Removal, ARowWithoutANameTouchesNothing) {
  CleaningMethod = u"D";
  machine.files.AddFile(u"C:\\Work\\keep.txt");
  Add(u"P", u"C:\\Work", u"", u"0.");
  Add(u"P", u"", u"", u"0.");
  Add(u"F", u"", u"", u"0.");
  frmPubMain.sbtClean.Click();
  EXPECT_TRUE(FileThere(u"C:\\Work\\keep.txt"));
  ASSERT_EQ(ResultCount(), 1) << "the folder still stands, so its row does";
}

TEST_F(Removal, EachFailingCallInTurnLeavesTheRowsOfAllThatStands) {
  for (const TextView method : {u"D", u"R", u"S"}) {
    int callsInAll = 1;
    for (int failing = 0; failing <= callsInAll; ++failing) {
      SCOPED_TRACE(Case(failing));
      ClearResults();
      machine.files.DeleteFolder(u"C:\\Work", true);
      machine.files.DeleteFolder(u"C:\\TVXBak", true);
      machine.files.AddFolder(u"C:\\TVXBak");
      machine.files.AddFile(u"C:\\Work\\bystander.txt");
      CleaningMethod = method;
      AddFileRow(u"a.txt");
      AddFolderRow(u"empty");
      machine.files.AddFile(u"C:\\Work\\dump.dmp", {.content = "d"});
      Add(u"FT: C:\\Work\\dump.dmp", u"C:\\Work", u"Dump", u"1.");
      Add(u"RK: HKEY_CURRENT_USER, Software\\Missing");
      Add(u"DUR", u"C:\\Work", u"x.dat", u"1.");
      const int before = machine.files.faults.Calls();
      machine.files.faults.FailCall(failing);
      frmPubMain.sbtClean.Click();
      callsInAll = std::max(callsInAll, machine.files.faults.Calls() - before);
      machine.files.faults.Clear();

      EXPECT_TRUE(FileThere(u"C:\\Work\\bystander.txt"));
      int kept = 0;
      int gone = 0;
      std::set<Text> listed;
      for (const RowFields& row : ResultRows()) {
        SCOPED_TRACE(Case(row.name));
        EXPECT_TRUE(row.checked);
        const Text path =
            row.tag.starts_with(u"FT") ? u"C:\\Work\\dump.dmp" : row.location + u"\\" + row.name;
        if (!FileThere(path) && !FolderThere(path)) ++gone;
        listed.insert(path);
        ++kept;
      }
      // One row at most stays although its item is gone: the failing call should have confirmed the removal.
      EXPECT_LE(gone, 1) << "call " << failing;
      for (const Text path : {u"C:\\Work\\a.txt", u"C:\\Work\\empty", u"C:\\Work\\dump.dmp"}) {
        EXPECT_TRUE(listed.contains(path) || (!FileThere(path) && !FolderThere(path)))
            << Narrow(path) << " call " << failing;
      }
      EXPECT_TRUE(
          Sum().starts_with(Concat(u"Sum: ", ToText(5 - kept), 5 - kept < 2 ? u" item," : u" items,")))
          << Narrow(Sum()) << " kept " << kept;
      if (method == u"S") {
        EXPECT_TRUE(FileThere(u"C:\\Work\\a.txt") || FileThere(u"C:\\TVXBak\\a.txt") ||
                    FileThere(u"C:\\TVXBak\\a.txt.1"));
      }
    }
    EXPECT_GE(callsInAll, 3);
  }
}

TEST_F(Removal, WhatCantBeTestedAfterwardsCountsAsThere) {
  for (const TextView method : {u"D", u"R", u"S"}) {
    ClearResults();
    CleaningMethod = method;
    AddFileRow(u"a.txt");
    AddFolderRow(u"empty");
    machine.files.AddFile(u"C:\\Work\\dump.dmp", {.content = "d"});
    Add(u"FT: C:\\Work\\dump.dmp", u"C:\\Work", u"Dump", u"1.");
    machine.files.faults.Fail(u"FileExists");
    machine.files.faults.Fail(u"FolderExists");
    frmPubMain.sbtClean.Click();
    machine.files.faults.Clear();
    EXPECT_EQ(ResultCount(), 3) << Narrow(method);
    EXPECT_EQ(Sum(), u"Sum: 0 item, 0. KB cleaned.") << Narrow(method);
  }
}

}  // namespace
}  // namespace tavix::mdlPubSelf
