#include "clean/safeguard.h"

#include <utility>

#include "clean/clean_test.h"
#include "doubles/memory_shell.h"
#include "forms/main_form.h"
#include "platform/machine/formats/machine_facts.h"
#include "support/case.h"

namespace tavix::mdlPubSelf {
namespace {

class SafeguardTest : public CleanTest {
 protected:
  // Cleans one row by each method. Returns the methods that removed the file or folder.
  Text MethodsThatRemove(TextView tag, TextView folder, TextView name, const std::function<void()>& make) {
    const Text path = Concat(folder, u"\\", name);
    Text methods;
    for (const TextView method : {u"D", u"R", u"S"}) {
      SCOPED_TRACE(Case(method));
      CleaningMethod = method;
      ClearResults();
      make();
      if (tag.starts_with(u"FT")) {
        Add(Concat(u"FT: ", path), folder, name, u"1.");
      } else {
        Add(tag, folder, name, u"1.");
      }
      frmPubMain.sbtClean.Click();
      const bool stays = CleanTest::FileThere(path) || FolderThere(path);
      EXPECT_EQ(ResultCount(), stays ? 1 : 0) << Narrow(path) << " " << Narrow(method);
      if (stays) {
        EXPECT_TRUE(frmPubMain.lsvResult.Row(1).Checked());
        EXPECT_EQ(Sum(), u"Sum: 0 item, 0. KB cleaned.");
      } else {
        methods += method;
      }
    }
    return methods;
  }
  Text File(TextView folder, TextView name) {
    return MethodsThatRemove(u"F", folder, name,
                             [&] { machine.files.AddFile(Concat(folder, u"\\", name), {.content = "x"}); });
  }
  // MethodsThatRemove for a file that exists.
  Text FileThere(TextView folder, TextView name) {
    return MethodsThatRemove(u"F", folder, name, [] {});
  }
  Text NamedFile(TextView folder, TextView name) {
    return MethodsThatRemove(u"FT", folder, name,
                             [&] { machine.files.AddFile(Concat(folder, u"\\", name), {.content = "x"}); });
  }
  Text Folder(TextView folder, TextView name) {
    return MethodsThatRemove(u"P", folder, name,
                             [&] { machine.files.AddFolder(Concat(folder, u"\\", name)); });
  }
  void Fact(TextView section, TextView key, TextView value) { machine.facts.Set(section, key, value); }
};

constexpr TextView kAll = u"DRS";

TEST_F(SafeguardTest, TheProgramsDataStays) {
  EXPECT_EQ(File(u"C:\\MORVDataPath\\TVX", u"tvx.dll"), u"");
  EXPECT_EQ(File(u"C:\\MORVDataPath\\TVX", u"userjunk.dll"), u"");
  EXPECT_EQ(File(u"C:\\MORVDataPath\\TVX\\below", u"x.tmp"), u"");
  EXPECT_EQ(File(u"C:\\MORVDataPath", u"x.tmp"), u"");
  EXPECT_EQ(NamedFile(u"C:\\MORVDataPath\\TVX", u"x.tmp"), u"");
  EXPECT_EQ(Folder(u"C:\\MORVDataPath\\TVX", u"empty"), u"");
  EXPECT_EQ(File(u"c:\\MORVDATAPATH\\tvx", u"x.tmp"), u"") << "in any letter case";
  EXPECT_EQ(File(u"C:\\MORVDataPath2", u"x.tmp"), kAll) << "a name that only begins alike";
}

TEST_F(SafeguardTest, TheProgramsDataStaysByWhateverPathItIsReached) {
  machine.files.AddLink(u"C:\\Work\\way", u"C:\\MORVDataPath");
  EXPECT_EQ(FileThere(u"C:\\Work\\way\\TVX", u"userjunk.dll"), u"");
  EXPECT_EQ(MethodsThatRemove(u"P", u"C:\\Work", u"way", [] {}), u"");
  machine.files.DeleteFolder(u"C:\\MORVDataPath\\TVX", true);
  machine.files.AddFile(u"D:\\Elsewhere\\TVX\\userjunk.dll", {.content = "x"});
  machine.files.AddLink(u"C:\\MORVDataPath\\TVX", u"D:\\Elsewhere\\TVX");
  EXPECT_EQ(File(u"D:\\Elsewhere\\TVX", u"userjunk.dll"), u"");
  EXPECT_EQ(File(u"D:\\Elsewhere", u"x.tmp"), kAll);
}

TEST_F(SafeguardTest, BackupFoldersAndWhatLiesInThemStay) {
  BackupFolder = u"D:\\Saved";
  machine.files.AddFolder(u"D:\\Saved");
  EXPECT_EQ(File(u"D:\\Saved", u"a.tmp"), u"");
  EXPECT_EQ(File(u"D:\\Saved\\below", u"a.tmp"), u"");
  EXPECT_EQ(Folder(u"D:\\Saved", u"empty"), u"");
  EXPECT_EQ(File(u"C:\\TVXBak", u"a.tmp"), u"") << "the default one too";
  EXPECT_EQ(File(u"D:\\Saved2", u"a.tmp"), kAll);
}

TEST_F(SafeguardTest, AnEmptyBackupFolderAndTheFoldersAroundItStay) {
  BackupFolder = u"D:\\around\\it\\Saved";
  machine.files.AddFolder(BackupFolder);
  EXPECT_EQ(Folder(u"D:\\around\\it", u"Saved"), u"");
  EXPECT_EQ(Folder(u"D:\\around", u"it"), u"");
  EXPECT_EQ(Folder(u"D:", u"around"), u"");
  EXPECT_EQ(Folder(u"C:", u"TVXBak"), u"");
  EXPECT_EQ(Folder(u"c:", u"tvxbak"), u"");
  EXPECT_EQ(Folder(u"C:", u"Other"), kAll);
}

TEST_F(SafeguardTest, ABackupFolderThatIsADrivesRootKeepsNothingElseOnTheDrive) {
  BackupFolder = u"D:\\";
  machine.files.AddFolder(u"D:\\");
  EXPECT_EQ(File(u"D:\\Work", u"a.tmp"), u"DRS");
  EXPECT_EQ(Folder(u"D:\\Work", u"empty"), u"DRS");
}

TEST_F(SafeguardTest, ADrivesRootStays) {
  machine.files.AddFolder(u"E:\\");
  Fact(u"Drives", u"E", u"2,Empty");
  machine.files.AddLink(u"C:\\Work\\drive", u"E:\\");
  for (const auto& [folder, name] :
       {std::pair<TextView, TextView>{u"E:", u""}, {u"E:", u"."}, {u"C:\\Work", u"drive"}, {u"", u"E:"}}) {
    SCOPED_TRACE(Case(folder));
    CleaningMethod = u"D";
    ClearResults();
    Add(u"P", folder, name, u"0.");
    frmPubMain.sbtClean.Click();
    EXPECT_TRUE(FolderThere(u"E:\\"));
  }
  EXPECT_TRUE(FolderThere(u"C:\\Work\\drive"));
}

TEST_F(SafeguardTest, FoldersThatTheSystemNamesAndThoseAroundThemStay) {
  Fact(u"Environment", u"WinDir", u"C:\\WINDOWS");
  Fact(u"Folders", u"33", u"C:\\Users\\Ann\\Cookies");
  Fact(u"Special Folders", u"Fonts", u"C:\\WINDOWS\\Fonts");
  Fact(u"Temporary Folders", u"User", u"C:\\Users\\Ann\\Temp\\");
  EXPECT_EQ(Folder(u"C:\\WINDOWS", u"Fonts"), u"");
  EXPECT_EQ(Folder(u"C:", u"WINDOWS"), u"");
  EXPECT_EQ(Folder(u"C:\\Users\\Ann", u"Cookies"), u"");
  EXPECT_EQ(Folder(u"C:\\Users\\Ann", u"Temp"), u"");
  EXPECT_EQ(Folder(u"C:\\Users", u"Ann"), u"") << "it holds two of them";
  EXPECT_EQ(Folder(u"C:\\USERS", u"ANN"), u"");
  EXPECT_EQ(Folder(u"C:\\Users", u"Bob"), kAll);
  EXPECT_EQ(Folder(u"C:\\WINDOWS\\Fonts", u"below"), kAll);
  EXPECT_EQ(File(u"C:\\WINDOWS\\Fonts", u"a.tmp"), kAll) << "files in them go as ever";
}

TEST_F(SafeguardTest, WhereTheSystemCantTellTheFoldersThatItNamesEveryFolderStays) {
  machine.shell.faults.Fail(u"NamedFolders");
  EXPECT_EQ(Folder(u"C:\\Work", u"empty"), u"");
  EXPECT_EQ(File(u"C:\\Work", u"a.tmp"), kAll);
}

// An update made inetpub and asks to keep it; printing needs PRINTERS.
TEST_F(SafeguardTest, FoldersThatWindowsKeepsEmptyStay) {
  Fact(u"Environment", u"WinDir", u"D:\\Windows\\");
  Fact(u"Folders", u"35", u"E:\\ProgramData");
  for (const TextView name : {u"inetpub", u"PerfLogs", u"Recovery", u"System Volume Information",
                              u"$WinREAgent", u"OneDriveTemp", u"$Recycle.Bin", u"Config.Msi"}) {
    EXPECT_EQ(Folder(u"D:", name), u"") << Narrow(name);
    EXPECT_EQ(Folder(u"E:", name), kAll) << Narrow(name);
  }
  EXPECT_EQ(Folder(u"d:", u"INETPUB"), u"");
  EXPECT_EQ(Folder(u"D:\\Windows\\System32\\spool", u"PRINTERS"), u"");
  EXPECT_EQ(Folder(u"D:\\Windows\\System32\\config", u"RegBack"), u"");
  EXPECT_EQ(Folder(u"D:\\Windows", u"SystemTemp"), u"");
  EXPECT_EQ(Folder(u"E:\\ProgramData", u"SoftwareDistribution"), u"");
  EXPECT_EQ(Folder(u"D:\\inetpub", u"below"), kAll);
  EXPECT_EQ(Folder(u"D:", u"Other"), kAll);
}

TEST_F(SafeguardTest, WithoutAWindowsFolderNoDriveHasFoldersThatWindowsKeeps) {
  EXPECT_EQ(Folder(u"C:", u"inetpub"), kAll);
}

TEST_F(SafeguardTest, ALibraryInTheSystemFolderItselfStays) {
  Fact(u"Folders", u"9966", u"C:\\WINDOWS\\system32");
  EXPECT_EQ(File(u"C:\\WINDOWS\\system32", u"msvcp140.dll"), u"");
  EXPECT_EQ(File(u"C:\\windows\\SYSTEM32", u"MSVCP140.DLL"), u"");
  EXPECT_EQ(File(u"C:\\WINDOWS\\system32", u"a.log"), kAll);
  EXPECT_EQ(File(u"C:\\WINDOWS\\system32\\below", u"a.dll"), kAll);
  EXPECT_EQ(File(u"C:\\Work", u"a.dll"), kAll);
  machine.files.AddFile(u"C:\\WINDOWS\\system32\\a.dll");
  machine.files.AddLink(u"C:\\Work\\way", u"C:\\WINDOWS\\system32");
  EXPECT_EQ(FileThere(u"C:\\Work\\way", u"a.dll"), u"");
}

// The backup folder may be anywhere in its nearest parent that can be looked at.
TEST_F(SafeguardTest, WhereABackupFolderCannotBeLookedAtTheFolderAroundItStays) {
  BackupFolder = u"C:\\Work\\around\\circle\\Saved";
  machine.files.AddLink(u"C:\\Work\\around\\circle", u"C:\\Work\\around\\circle");
  EXPECT_EQ(File(u"C:\\Work\\around", u"a.tmp"), u"");
  EXPECT_EQ(File(u"C:\\Work\\around\\below", u"a.tmp"), u"");
  EXPECT_EQ(File(u"C:\\Work\\beside", u"a.tmp"), u"DR");
  BackupFolder = u"\\\\nas\\saved";
  EXPECT_EQ(File(u"C:\\Work\\around", u"a.tmp"), u"DR") << "what is on another computer is not here";
}

TEST_F(SafeguardTest, WhereANamedFolderCannotBeLookedAtNoFolderAroundItGoes) {
  Fact(u"Folders", u"33", u"C:\\Users\\Bob\\circle\\Cookies");
  machine.files.AddLink(u"C:\\Users\\Bob\\circle", u"C:\\Users\\Bob\\circle");
  EXPECT_EQ(Folder(u"C:\\Users\\Bob", u"empty"), u"");
  EXPECT_EQ(File(u"C:\\Users\\Bob", u"a.tmp"), kAll);
  EXPECT_EQ(Folder(u"C:\\Users\\Ann", u"empty"), kAll);
}

TEST_F(SafeguardTest, SavingIntoTheBackupFolderKeepsWhatItSaves) {
  CleaningMethod = u"S";
  Add(u"P", u"C:", u"TVXBak", u"0.");
  AddFileRow(u"a.txt");
  frmPubMain.sbtClean.Click();
  EXPECT_TRUE(CleanTest::FileThere(u"C:\\TVXBak\\a.txt"));
  ASSERT_EQ(ResultCount(), 1);
  EXPECT_EQ(ResultRows()[0].name, u"TVXBak");
}

}  // namespace
}  // namespace tavix::mdlPubSelf
