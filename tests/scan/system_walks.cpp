#include "scan/system_walks.h"

#include "doubles/memory_shell.h"
#include "forms/main_form.h"
#include "frame/settings.h"
#include "platform/event_queue.h"
#include "platform/machine/formats/machine_facts.h"
#include "platform/machine/host/machine_clock.h"
#include "platform/shortcut_bytes.h"
#include "scan/painting_watch.h"
#include "scan/scan_driver.h"
#include "scan/scan_test.h"
#include "support/case.h"

namespace tavix::mdlPubSelf {
namespace {

class SystemWalks : public ScanTest {
 protected:
  SystemWalks() {
    SetWindows();
    machine.facts.Set(u"Environment", u"USERNAME", u"Ann");
    SetDrive(u"C");
    machine.files.AddFolder(u"C:\\WINDOWS");
  }

  // A shortcut that names its target by its path.
  void AddShortcut(TextView path, TextView target) {
    using namespace platform::shortcut_bytes;
    machine.files.AddFile(
        path, {.content = Header(kHasLocation) + LocationBlock({.flags = 1, .path = target}) + U32(0)});
  }
};

TEST_F(SystemWalks, TemporaryFilesAreTheUsersThenTheSystems) {
  SetUserTemp(u"C:\\Users\\Ann\\Temp");
  SetSystemTemp(u"  C:\\WINDOWS\\Temp ");
  AddFile(u"C:\\Users\\Ann\\Temp\\~DF1.tmp", 0);
  AddFile(u"C:\\Users\\Ann\\Temp\\x\\readme.txt", 2);
  AddFile(u"C:\\WINDOWS\\Temp\\index.dat", 3);
  EXPECT_EQ(Scan(u"Temporary Files"),
            (std::vector{FileRow(u"User Temporary File", u"C:\\Users\\Ann\\Temp", u"~DF1.tmp", 0),
                         FileRow(u"User Temporary File", u"C:\\Users\\Ann\\Temp\\x", u"readme.txt", 2),
                         FileRow(u"System Temporary File", u"C:\\WINDOWS\\Temp", u"index.dat", 3)}));
}

TEST_F(SystemWalks, ATemporaryFolderThatIsMissingAddsNoRow) {
  SetUserTemp(u"C:\\Nowhere");
  EXPECT_TRUE(Scan(u"Temporary Files").empty());
  // An unknown folder doesn't hide the files of the other.
  SetUserTemp(u"C:\\T");
  AddFile(u"C:\\T\\a");
  EXPECT_EQ(Scan(u"Temporary Files"), (std::vector{FileRow(u"User Temporary File", u"C:\\T", u"a")}));
  SetSystemTemp(u"C:\\T");
  machine.shell.faults.Fail(u"UserTempFolder");
  EXPECT_EQ(Scan(u"Temporary Files"), (std::vector{FileRow(u"System Temporary File", u"C:\\T", u"a")}));
}

TEST_F(SystemWalks, FileFragmentsAreTheFilesThatFitInFoundFolders) {
  AddFiles({u"C:\\FOUND.000\\FILE0000.CHK", u"C:\\FOUND.000\\chklist.ms", u"C:\\FOUND.000\\Chklist.mscan",
            u"C:\\FOUND.000\\file0001._dd", u"C:\\FOUND.000\\file001._dd", u"C:\\FOUND.000\\file00001._dd",
            u"C:\\FOUND.000\\readme.txt", u"C:\\FOUND.000\\dir0000.chk\\a.chk",
            u"C:\\FOUND.000\\dir\\b.txt"});
  EXPECT_EQ(Scan(u"CHKDSK File Fragments"),
            (std::vector{
                FileRow(u"CHKDSK File Fragment", u"C:\\FOUND.000", u"chklist.ms"),
                FileRow(u"CHKDSK File Fragment", u"C:\\FOUND.000", u"Chklist.mscan"),
                FileRow(u"CHKDSK File Fragment", u"C:\\FOUND.000", u"FILE0000.CHK"),
                FileRow(u"CHKDSK File Fragment", u"C:\\FOUND.000", u"file0001._dd"),
                // A question mark before the dot matches one character or none.
                FileRow(u"CHKDSK File Fragment", u"C:\\FOUND.000", u"file001._dd"),
                FileRow(u"CHKDSK File Fragment", u"C:\\FOUND.000\\dir0000.chk", u"a.chk"),
            }));
}

TEST_F(SystemWalks, AFolderCountsByTheFirstSixCharactersOfItsName) {
  AddFiles({u"C:\\FOUND.000\\a.chk", u"C:\\found.123\\b.chk", u"C:\\Found.x\\c.chk",
            u"C:\\found.\u00E9\\d.chk", u"C:\\foundation\\no.chk", u"C:\\found\\no.chk",
            u"C:\\foun.000\\no.chk", u"C:\\xfound.000\\no.chk", u"C:\\deep\\found.000\\no.chk",
            u"C:\\no.chk"});
  EXPECT_EQ(Paths(Scan(u"CHKDSK File Fragments")),
            (std::vector<Text>{u"C:\\FOUND.000\\a.chk", u"C:\\found.123\\b.chk", u"C:\\Found.x\\c.chk",
                               u"C:\\found.\u00E9\\d.chk"}));
}

TEST_F(SystemWalks, NoFoundFolderOnAnyDriveGivesNoRow) {
  AddFile(u"C:\\a.chk");
  machine.files.AddFolder(u"D:\\");
  EXPECT_TRUE(Scan(u"CHKDSK File Fragments").empty());
}

TEST_F(SystemWalks, DrivesCountUnlessTheyAreNotReadyOrOfTheNetworkOrDiscs) {
  const struct {
    TextView drive, fact;
    bool counts;
  } table[] = {{u"C", u"2", true},  {u"D", u"0", true}, {u"E", u"1,Stick", true},      {u"F", u"3", false},
               {u"G", u"4", false}, {u"H", u"5", true}, {u"I", u"2,,not ready", false}};
  std::vector<Text> expected;
  for (const auto& row : table) {
    const Text folder = Concat(row.drive, u":\\FOUND.000");
    AddFile(Concat(folder, u"\\a.chk"));
    SetDrive(row.drive, row.fact);
    if (row.counts) expected.push_back(Concat(folder, u"\\a.chk"));
  }
  EXPECT_EQ(Paths(Scan(u"CHKDSK File Fragments")), expected);
}

TEST_F(SystemWalks, ADriveThatCannotBeReadTakesNothingFromTheNext) {
  AddFiles({u"C:\\FOUND.000\\a.chk", u"D:\\FOUND.000\\b.chk", u"E:\\FOUND.000\\c.chk"});
  machine.files.faults.Fail(u"List", u"D:\\");
  EXPECT_EQ(Paths(Scan(u"CHKDSK File Fragments")),
            (std::vector<Text>{u"C:\\FOUND.000\\a.chk", u"E:\\FOUND.000\\c.chk"}));
}

TEST_F(SystemWalks, LogFilesAreThoseOfTheWholeTreeOfWindows) {
  AddFiles({u"C:\\WINDOWS\\setupact.LOG", u"C:\\WINDOWS\\log.txt", u"C:\\WINDOWS\\a.log1",
            u"C:\\WINDOWS\\system32\\wbem\\Logs\\x.log", u"C:\\WINDOWS\\Debug\\.log", u"C:\\other.log"});
  EXPECT_EQ(Scan(u"Windows Log Files"),
            (std::vector{FileRow(u"Windows Log File", u"C:\\WINDOWS", u"setupact.LOG"),
                         FileRow(u"Windows Log File", u"C:\\WINDOWS\\Debug", u".log"),
                         FileRow(u"Windows Log File", u"C:\\WINDOWS\\system32\\wbem\\Logs", u"x.log")}));
}

TEST_F(SystemWalks, TheFolderOfWindowsMayBeADriveOrHaveSeparatorsOfEitherKind) {
  AddFiles({u"C:\\a.log", u"C:\\WINDOWS\\b.log"});
  const auto locationOfTheFirst = [this](TextView folder) {
    SetWindows(folder);
    return Scan(u"Windows Log Files").at(0).location;
  };
  EXPECT_EQ(locationOfTheFirst(u"C:\\"), u"C:\\");
  EXPECT_EQ(locationOfTheFirst(u"C:"), u"C:\\");
  EXPECT_EQ(locationOfTheFirst(u"c:/windows/"), u"c:/windows");
}

TEST_F(SystemWalks, CancelStopsTheLogWalkBetweenFolders) {
  AddFiles({u"C:\\WINDOWS\\a\\1.log", u"C:\\WINDOWS\\b\\2.log", u"C:\\WINDOWS\\c\\3.log"});
  struct CancelAtFirst : platform::EventQueue {
    void Yield() override { frmPubMain.sbtCancel.Click(); }
  } cancel;
  platform::eventQueue = &cancel;
  EXPECT_EQ(Paths(Scan(u"Windows Log Files")), (std::vector<Text>{u"C:\\WINDOWS\\a\\1.log"}));
}

TEST_F(SystemWalks, InvalidShortcutsOfFivePlacesInTheirOrder) {
  const struct {
    TextView number, folder, walked, type;
  } table[] = {
      {u"1", u"C:\\All\\Start Menu", u"", u"Invalid Shortcut (All User's Start Menu)"},
      {u"0", u"C:\\All\\Desktop", u"", u"Invalid Shortcut (All User's Desktop)"},
      {u"11", u"C:\\Ann\\Start Menu", u"", u"Invalid Shortcut (Ann's Start Menu)"},
      {u"10", u"C:\\Ann\\Desktop", u"", u"Invalid Shortcut (Ann's Desktop)"},
      {u"5", u"C:\\Ann\\AppData", u"\\Microsoft\\Internet Explorer\\Quick Launch",
       u"Invalid Shortcut (Quick Launch)"},
  };
  AddFile(u"C:\\there.exe");
  std::vector<Text> types, paths;
  for (const auto& row : table) {
    SetSpecialFolder(row.number, row.folder);
    const Text walked = Concat(row.folder, row.walked);
    AddShortcut(Concat(walked, u"\\dead.lnk"), u"C:\\gone.exe");
    AddShortcut(Concat(walked, u"\\good.lnk"), u"C:\\there.exe");
    AddShortcut(Concat(walked, u"\\Programs\\Dead too.LNK"), u"C:\\Missing\\gone.exe");
    AddShortcut(Concat(walked, u"\\dead.txt"), u"C:\\gone.exe");
    types.insert(types.end(), 2, Text(row.type));
    paths.push_back(Concat(walked, u"\\dead.lnk"));
    paths.push_back(Concat(walked, u"\\Programs\\Dead too.LNK"));
  }
  // The application data folder itself is not walked, only folders below it.
  AddShortcut(u"C:\\Ann\\AppData\\dead.lnk", u"C:\\gone.exe");
  const auto rows = Scan(u"Invalid Shortcuts in User Folders");
  std::vector<Text> found;
  for (const RowFields& row : rows) found.push_back(row.type);
  EXPECT_EQ(found, types);
  EXPECT_EQ(Paths(rows), paths);
  EXPECT_EQ(rows[0].tag, u"F");
  EXPECT_EQ(rows[0].size, u"0.1");
}

TEST_F(SystemWalks, AShortcutFolderThatIsNotKnownIsPassedOver) {
  SetSpecialFolder(u"10", u"C:\\Ann\\Desktop");
  AddShortcut(u"C:\\Ann\\Desktop\\dead.lnk", u"C:\\gone.exe");
  // The path below an unknown folder must not be taken from the root.
  AddShortcut(u"C:\\Microsoft\\Internet Explorer\\Quick Launch\\dead.lnk", u"C:\\gone.exe");
  EXPECT_EQ(Paths(Scan(u"Invalid Shortcuts in User Folders")),
            (std::vector<Text>{u"C:\\Ann\\Desktop\\dead.lnk"}));
}

TEST_F(SystemWalks, AUserWithoutANameHasNoneInTheTypes) {
  machine.shell.faults.Fail(u"EnvironmentVariable", u"USERNAME");
  SetSpecialFolder(u"10", u"C:\\Ann\\Desktop");
  AddShortcut(u"C:\\Ann\\Desktop\\dead.lnk", u"C:\\gone.exe");
  EXPECT_EQ(Scan(u"Invalid Shortcuts in User Folders").at(0).type, u"Invalid Shortcut ('s Desktop)");
}

TEST_F(SystemWalks, UpdateUninstallersAreTheFoldersOfThatNameInAnyLetterCase) {
  AddFiles({u"C:\\WINDOWS\\$NtUninstallKB123456$\\a.dll",
            u"C:\\WINDOWS\\$NtUninstallKB123456$\\spuninst\\spuninst.inf",
            u"C:\\WINDOWS\\$NTUNINSTALL$\\b.dll", u"C:\\WINDOWS\\$ntuninstall\\c.dll",
            u"C:\\WINDOWS\\$NtUninstal\\no.dll", u"C:\\WINDOWS\\$NtServicePackUninstall$\\no.dll",
            u"C:\\WINDOWS\\x$NtUninstallKB1$\\no.dll", u"C:\\WINDOWS\\deep\\$NtUninstallKB1$\\no.dll",
            u"C:\\$NtUninstallKB1$\\no.dll", u"C:\\WINDOWS\\$NtUninstallfile"});
  const auto rows = Scan(u"Uninstall Files for Windows Update");
  EXPECT_EQ(Paths(rows),
            (std::vector<Text>{u"C:\\WINDOWS\\$ntuninstall\\c.dll", u"C:\\WINDOWS\\$NTUNINSTALL$\\b.dll",
                               u"C:\\WINDOWS\\$NtUninstallKB123456$\\a.dll",
                               u"C:\\WINDOWS\\$NtUninstallKB123456$\\spuninst\\spuninst.inf"}));
  EXPECT_EQ(rows[0], FileRow(u"Uninstall File for Windows Update", u"C:\\WINDOWS\\$ntuninstall", u"c.dll"));
}

TEST_F(SystemWalks, UpdateSourcesAreEveryFileOfTheDownloads) {
  AddFiles({u"C:\\WINDOWS\\SoftwareDistribution\\Download\\a", u"C:\\WINDOWS\\SoftwareDistribution\\b",
            u"C:\\WINDOWS\\SoftwareDistribution\\Download\\3f5c\\update.cab"});
  EXPECT_EQ(Scan(u"Windows Update Source Files"),
            (std::vector{
                FileRow(u"Windows Update Source File", u"C:\\WINDOWS\\SoftwareDistribution\\Download", u"a"),
                FileRow(u"Windows Update Source File", u"C:\\WINDOWS\\SoftwareDistribution\\Download\\3f5c",
                        u"update.cab")}));
}

TEST_F(SystemWalks, FoldersOfWindowsThatAreMissingAddNoRowAndNoStatus) {
  frmPubMain.lblProgS.Caption = u"untouched";
  for (const TextView function :
       {u"Uninstall Files for Windows Update", u"Windows Update Source Files", u"Old Prefetch data"}) {
    SCOPED_TRACE(Case(function));
    EXPECT_TRUE(Scan(function).empty());
  }
  machine.shell.faults.Fail(u"EnvironmentVariable", u"WinDir");
  AddFiles({u"C:\\a.log", u"C:\\$NtUninstallKB1$\\a", u"C:\\SoftwareDistribution\\Download\\a",
            u"C:\\Prefetch\\A.pf"});
  for (const TextView function : {u"Windows Log Files", u"Uninstall Files for Windows Update",
                                  u"Windows Update Source Files", u"Old Prefetch data"}) {
    SCOPED_TRACE(Case(function));
    EXPECT_TRUE(Scan(function).empty());
  }
  EXPECT_EQ(frmPubMain.lblProgS.Caption, Text(u"untouched"));
}

constexpr platform::DateTime kHour = 3600LL * 1000;
constexpr platform::DateTime kDay = 24 * kHour;

// Prefetch files are named after the days since their last access, which was at the same time of day.
class Prefetch : public SystemWalks {
 protected:
  Prefetch() {
    clock.Set(kToday);
    for (const int days : {0, 1, 29, 30, 31, 400}) {
      Add(Concat(u"D", ToText(days), u".pf"), kToday - days * kDay);
    }
    Add(u"Layout.ini", kToday - 400 * kDay);
    // Late on the evening thirty days ago, and early on the morning after it.
    Add(u"Evening.pf", kToday - 30 * kDay + 11 * kHour);
    Add(u"Morning.pf", kToday - 29 * kDay - 11 * kHour);
  }
  void Add(TextView name, platform::DateTime accessed) {
    machine.files.AddFile(Concat(u"C:\\WINDOWS\\Prefetch\\", name), {.accessed = accessed});
  }
  static std::vector<Text> Names(TextView days) {
    LastAccessedPrefetch = days;
    std::vector<Text> names;
    for (const RowFields& row : Scan(u"Old Prefetch data")) names.push_back(row.name);
    return names;
  }

  static constexpr platform::DateTime kToday = 20000 * kDay + 12 * kHour;  // at noon
};

TEST_F(Prefetch, DataIsOldAfterTheDaysOfTheSetting) {
  EXPECT_EQ(LastAccessedPrefetch, u"30");
  EXPECT_EQ(Names(u"30"), (std::vector<Text>{u"D30.pf", u"D31.pf", u"D400.pf", u"Evening.pf"}));
  EXPECT_EQ(Names(u"31"), (std::vector<Text>{u"D31.pf", u"D400.pf"}));
  EXPECT_EQ(Names(u"1"), (std::vector<Text>{u"D1.pf", u"D29.pf", u"D30.pf", u"D31.pf", u"D400.pf",
                                            u"Evening.pf", u"Morning.pf"}));
}

TEST_F(Prefetch, WithZeroDaysTheAgeDoesNotCount) {
  for (const TextView days : {u"0", u"-5"}) EXPECT_EQ(Names(days).size(), 8U);
}

TEST_F(Prefetch, RowsAreThoseOfFiles) {
  machine.files.AddFile(u"C:\\WINDOWS\\Prefetch\\ReadyBoot\\OLD.EXE-0A1B.PF", {.size = 2048});
  const auto rows = (LastAccessedPrefetch = u"1", Scan(u"Old Prefetch data"));
  EXPECT_EQ(rows.back(),
            FileRow(u"Old Prefetch data", u"C:\\WINDOWS\\Prefetch\\ReadyBoot", u"OLD.EXE-0A1B.PF", 2));
}

TEST_F(Prefetch, ASettingThatIsNoNumberOfSixteenBitsFindsNothing) {
  for (const TextView days : {u"", u"many", u"32768", u"1e9"}) EXPECT_TRUE(Names(days).empty()) << Case(days);
  EXPECT_EQ(Names(u"29.5").size(), 4U) << "halves go to the even number";
}

TEST_F(SystemWalks, WalksSuspendThePaintingOfTheListFromTheFirstToTheLast) {
  SetUserTemp(u"C:\\T1");
  SetSystemTemp(u"C:\\T2");
  for (const TextView number : {u"0", u"1", u"10", u"11"}) {
    SetSpecialFolder(number, u"C:\\T1");
  }
  for (const TextView folder : {u"C:\\T1", u"C:\\T2", u"C:\\FOUND.000", u"C:\\FOUND.001",
                                u"C:\\WINDOWS\\$NtUninstallKB1$", u"C:\\WINDOWS\\$NtUninstallKB2$",
                                u"C:\\WINDOWS\\SoftwareDistribution\\Download", u"C:\\WINDOWS\\Prefetch"}) {
    machine.files.AddFolder(folder);
  }
  const struct {
    TextView function;
    size_t folders;
  } table[] = {
      {u"Temporary Files", 2},
      {u"CHKDSK File Fragments", 2},
      {u"Windows Log Files", 6},
      {u"Invalid Shortcuts in User Folders", 4},
      {u"Uninstall Files for Windows Update", 2},
      {u"Windows Update Source Files", 1},
      {u"Old Prefetch data", 1},
  };
  for (const auto& row : table) {
    PaintingWatch watch;
    Scan(row.function);
    EXPECT_EQ(watch.changes, (std::vector{true, false})) << Narrow(row.function);
    EXPECT_EQ(watch.atYields, std::vector<bool>(row.folders, true)) << Narrow(row.function);
  }
}

TEST_F(SystemWalks, RowsWithoutAWalkLeaveThePaintingAlone) {
  for (const TextView function :
       {u"Empty Recycle Bin", u"Memory Dumps", u"Windows System Logs", u"Menu Order Caches",
        u"Tray Notifications Cache", u"Windows Size and Location Caches"}) {
    SCOPED_TRACE(Case(function));
    PaintingWatch watch;
    Scan(function);
    EXPECT_TRUE(watch.changes.empty());
    EXPECT_TRUE(watch.atYields.empty());
  }
}

}  // namespace
}  // namespace tavix::mdlPubSelf
