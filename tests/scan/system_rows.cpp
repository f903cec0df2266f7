#include "scan/system_rows.h"

#include "doubles/memory_shell.h"
#include "forms/main_form.h"
#include "platform/event_logs.h"
#include "platform/machine/formats/machine_facts.h"
#include "platform/machine/services/journal.h"
#include "platform/machine/services/machine_event_logs.h"
#include "scan/scan_test.h"

namespace tavix::mdlPubSelf {
namespace {

class SystemRows : public ScanTest {
 protected:
  void SetBin(TextView info) { machine.facts.Set(u"Recycle Bin", u"Info", info); }
  void SetLog(TextView log, TextView count) { machine.facts.Set(u"Event Logs", log, count); }
};

RowFields BinRow(TextView name, TextView size, TextView sizeKey) {
  return {u"Recycle Bins", Text(name), Text(size), u"Each Recycle Bin", Text(sizeKey), u"RE", true};
}

TEST_F(SystemRows, TheRecycleBinIsOneRowWithTheSystemsCountAndSize) {
  const struct {
    TextView info, name, size, sizeKey;
  } table[] = {
      {u"3|4096", u"Recycle Bins (3 Items)", u"4.", u"00000004.0"},
      {u"0|0", u"Recycle Bins (0 Items)", u"0.", u"00000000.0"},
      {u"1|1", u"Recycle Bins (1 Items)", u"0.", u"00000000.0"},
      {u"1|52", u"Recycle Bins (1 Items)", u"0.1", u"00000000.1"},
      {u"12|1573376", u"Recycle Bins (12 Items)", u"1,536.5", u"00001536.5"},
      // The largest number of 32 bits, and one more.
      {u"5|2147483647", u"Recycle Bins (5 Items)", u"2,097,152.", u"02097152.0"},
      {u"5|2147483648", u"Recycle Bins (5 Items)", u"", u""},
      {u"5|99999999999999", u"Recycle Bins (5 Items)", u"", u""},
      // No number: shown as too large.
      {u"9|over", u"Recycle Bins (9 Items)", u"Over 2,097,152", u"99999999.9"},
      {u"9|", u"Recycle Bins (9 Items)", u"Over 2,097,152", u"99999999.9"},
      // Numbers in the user's format. A result halfway is rounded to the even digit.
      {u"2|2,048", u"Recycle Bins (2 Items)", u"2.", u"00000002.0"},
      {u"2|-1024", u"Recycle Bins (2 Items)", u"-1.", u"-00000001.0"},
      // Further fields are ignored. Without the second field there is no size.
      {u"3|1024|x", u"Recycle Bins (3 Items)", u"1.", u"00000001.0"},
      {u"3", u"Recycle Bins (3 Items)", u"", u""},
      {u"|1024", u"Recycle Bins ( Items)", u"1.", u"00000001.0"},
  };
  for (const auto& row : table) {
    SetBin(row.info);
    EXPECT_EQ(Scan(u"Empty Recycle Bin"), (std::vector{BinRow(row.name, row.size, row.sizeKey)}))
        << Narrow(row.info);
  }
}

TEST_F(SystemRows, ABinWhoseSizeHasNoNumberAddsNothingToTheSum) {
  SetBin(u"9|over");
  Scan(u"Empty Recycle Bin");
  EXPECT_EQ(SumResultSizes(), 0.0F);
}

TEST_F(SystemRows, WithoutAnswerTheRowOfTheBinHasTypeLocationAndActionOnly) {
  SetBin(u"-");
  EXPECT_EQ(Scan(u"Empty Recycle Bin"), (std::vector{BinRow(u"", u"", u"")}));
}

TEST_F(SystemRows, ADumpThatCantBeLookedForHasARowWithoutNameAndSize) {
  SetWindows();
  machine.files.faults.Fail(u"FileExists", u"C:\\WINDOWS\\memory.dmp");
  EXPECT_EQ(Scan(u"Memory Dumps"), (std::vector{RowFields{u"Memory Dumps", u"", u"", u"System Drive", u"",
                                                          u"FT: C:\\WINDOWS\\memory.dmp", true}}));
}

TEST_F(SystemRows, AnEmptyRecycleBinHasARowAndCleaningItDoesNoHarm) {
  AddFile(u"C:\\kept.txt");
  EXPECT_EQ(Scan(u"Empty Recycle Bin"),
            (std::vector{BinRow(u"Recycle Bins (0 Items)", u"0.", u"00000000.0")}));
  machine.journal.Clear();
  frmPubMain.sbtClean.Click();
  ASSERT_EQ(machine.journal.Entries().size(), 1U);
  EXPECT_EQ(machine.journal.Entries()[0].op, u"EmptyRecycleBin");
  EXPECT_EQ(ResultCount(), 0);
  EXPECT_EQ(machine.files.FileExists(u"C:\\kept.txt"), true);
  EXPECT_EQ(frmPubMain.lblSum.Caption, Text(u"Sum: 1 item, 0. KB cleaned."));
}

TEST_F(SystemRows, ADeletedFileIsCountedInTheBin) {
  AddFile(u"C:\\a.txt", 3);
  machine.shell.DeleteToRecycleBin(u"C:\\a.txt");
  EXPECT_EQ(Scan(u"Empty Recycle Bin"),
            (std::vector{BinRow(u"Recycle Bins (1 Items)", u"3.", u"00000003.0")}));
}

TEST_F(SystemRows, ABinSizeOverThirtyTwoBitsIsShownInWords) {
  const struct {
    uint64_t size;
    RowFields row;
  } table[] = {
      {0x7FFFFFFF, BinRow(u"Recycle Bins (1 Items)", u"2,097,152.", u"02097152.0")},
      {0x80000000, BinRow(u"Recycle Bins (1 Items)", u"Over 2,097,152", u"99999999.9")},
  };
  for (const auto& one : table) {
    machine.shell.EmptyRecycleBin(0);
    machine.files.AddFile(u"C:\\big", {.size = one.size});
    machine.shell.DeleteToRecycleBin(u"C:\\big");
    EXPECT_EQ(Scan(u"Empty Recycle Bin"), std::vector{one.row});
  }
}

RowFields DumpRow(TextView name, TextView size, TextView sizeKey) {
  return {u"Memory Dumps",
          Text(name),
          Text(size),
          u"System Drive",
          Text(sizeKey),
          u"FT: C:\\WINDOWS\\memory.dmp",
          true};
}

TEST_F(SystemRows, AMemoryDumpHasItsSizeInTheRow) {
  SetWindows();
  machine.files.AddFile(u"C:\\Windows\\MEMORY.DMP", {.size = 1573376});
  EXPECT_EQ(Scan(u"Memory Dumps"),
            (std::vector{DumpRow(u"System Memory Dumps (1 File)", u"1,536.5", u"00001536.5")}));
}

TEST_F(SystemRows, AMemoryDumpOfNoBytesHasThePoint) {
  SetWindows();
  AddFile(u"C:\\Windows\\memory.dmp", 0);
  EXPECT_EQ(Scan(u"Memory Dumps"),
            (std::vector{DumpRow(u"System Memory Dumps (1 File)", u"0.", u"00000000.0")}));
}

TEST_F(SystemRows, WithoutAMemoryDumpTheSizeIsAZeroWithNoPoint) {
  SetWindows();
  const RowFields none = DumpRow(u"System Memory Dumps (0 File)", u"0", u"00000000.0");
  EXPECT_EQ(Scan(u"Memory Dumps"), std::vector{none});
  machine.files.AddFolder(u"C:\\WINDOWS\\memory.dmp");
  EXPECT_EQ(Scan(u"Memory Dumps"), std::vector{none});
}

TEST_F(SystemRows, AMemoryDumpThatCannotBeLookedAtHasNoSize) {
  SetWindows();
  AddFile(u"C:\\WINDOWS\\memory.dmp");
  machine.files.faults.Fail(u"Look", u"C:\\WINDOWS\\memory.dmp");
  EXPECT_EQ(Scan(u"Memory Dumps"), (std::vector{DumpRow(u"System Memory Dumps (1 File)", u"", u"")}));
}

TEST_F(SystemRows, TheFolderOfWindowsHasNoBackslashAtItsEnd) {
  SetWindows(u"C:\\WINDOWS\\");
  EXPECT_EQ(Scan(u"Memory Dumps")[0].tag, u"FT: C:\\WINDOWS\\memory.dmp");
}

TEST_F(SystemRows, CleaningAMemoryDumpDeletesItAndNothingElse) {
  SetWindows();
  AddFile(u"C:\\WINDOWS\\memory.dmp", 2);
  AddFile(u"C:\\WINDOWS\\memory.txt");
  Scan(u"Memory Dumps");
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(machine.files.FileExists(u"C:\\WINDOWS\\memory.dmp"), false);
  EXPECT_EQ(machine.files.FileExists(u"C:\\WINDOWS\\memory.txt"), true);
  EXPECT_EQ(ResultCount(), 0);
}

RowFields LogRow(TextView log, TextView count) {
  return {u"Windows System Log",
          Concat(log, u" Category (", count, u" Items)"),
          u"N/A",
          u"Windows System",
          u"00000000.0",
          Concat(u"WSL: ", log),
          true};
}

TEST_F(SystemRows, EachEventLogIsARowAndAnUnreadableOneShowsTheCountBefore) {
  const struct {
    TextView system, application, security;
    std::array<TextView, 3> shown;
  } table[] = {
      {u"37", u"112", u"9", {u"37", u"112", u"9"}},
      {u"37", u"112", u"-", {u"37", u"112", u"112"}},
      {u"37", u"-", u"-", {u"37", u"37", u"37"}},
      {u"-", u"5", u"-", {u"0", u"5", u"5"}},
      {u"-", u"-", u"-", {u"0", u"0", u"0"}},
      {u"7", u"0", u"-", {u"7", u"0", u"0"}},
      {u"4294967295", u"2147483648", u"1", {u"4294967295", u"2147483648", u"1"}},
  };
  for (const auto& row : table) {
    SetLog(u"System", row.system);
    SetLog(u"Application", row.application);
    SetLog(u"Security", row.security);
    EXPECT_EQ(Scan(u"Windows System Logs"),
              (std::vector{LogRow(u"System", row.shown[0]), LogRow(u"Application", row.shown[1]),
                           LogRow(u"Security", row.shown[2])}));
  }
}

TEST_F(SystemRows, EveryLogThatWasOpenedIsClosed) {
  SetLog(u"System", u"1");
  SetLog(u"Application", u"2");
  Scan(u"Windows System Logs");
  EXPECT_EQ(machine.eventLogs.OpenLogs(), 0U);
}

TEST_F(SystemRows, WithoutEventLogsTheRowsShowNoEvents) {
  platform::eventLogs = platform::noEventLogs;
  EXPECT_EQ(Scan(u"Windows System Logs"),
            (std::vector{LogRow(u"System", u"0"), LogRow(u"Application", u"0"), LogRow(u"Security", u"0")}));
}

TEST_F(SystemRows, ShellCachesAreStandingRows) {
  const struct {
    TextView function, name, tag;
  } table[] = {
      {u"Menu Order Caches", u"in Start Menu and Favorites",
       u"RK: HKEY_CURRENT_USER, Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\MenuOrder"},
      {u"Tray Notifications Cache", u"Tray Notifications Cache",
       u"RIs: HKEY_CURRENT_USER, Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\TrayNotify, "
       u"IconStreams MORVTVXRISSEP HKEY_CURRENT_USER, "
       u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\TrayNotify, PastIconsStream"},
      {u"Windows Size and Location Caches", u"Windows Size and Location Caches",
       u"RK: HKEY_CURRENT_USER, Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\StreamMRU"},
  };
  frmPubMain.lblProgS.Caption = u"untouched";
  for (const auto& row : table) {
    EXPECT_EQ(Scan(row.function),
              (std::vector<RowFields>{{Text(row.function), Text(row.name), u"N/A", u"Registry", u"00000000.0",
                                       Text(row.tag), true}}));
  }
  EXPECT_EQ(frmPubMain.lblProgS.Caption, Text(u"untouched"));
}

}  // namespace
}  // namespace tavix::mdlPubSelf
