#include "clean/clean_driver.h"

#include "frame/settings.h"
#include "frame/support/pub_registry.h"
#include "platform/event_queue.h"
#include "scan/result_items.h"
#include "scan/scan_driver.h"
#include "support/program_test.h"

namespace tavix::mdlPubSelf {
namespace {

using machine::FileSeed;
using platform::Hive;

class CleanDriver : public ProgramTest {
 protected:
  CleanDriver() {
    machine.files.AddFolder(u"C:\\Work");
    Start();
    frmPubMain.lblProgMO.Width = 3000;
    machine.journal.Clear();
  }

  static void Add(TextView tag, TextView location = u"Registry", TextView name = u"n",
                  TextView size = u"N/A") {
    AddResultItem(u"t", name, size, location, kNoSizeKey, tag);
  }
  void AddFileRow(TextView name, TextView size = u"2.") {
    machine.files.AddFile(Concat(u"C:\\Work\\", name), {.content = std::string(2048, 'x')});
    Add(u"F", u"C:\\Work", name, size);
  }
  void AddFolderRow(TextView name) {
    machine.files.AddFolder(Concat(u"C:\\Work\\", name));
    Add(u"P", u"C:\\Work", name, u"0.");
  }
  bool FileThere(TextView path) { return machine.files.FileExists(path); }
  bool FolderThere(TextView path) { return machine.files.FolderExists(path); }
  static Text Sum() { return frmPubMain.lblSum.Caption; }
  std::vector<Text> Calls() const {
    std::vector<Text> calls;
    for (const auto& entry : machine.journal.Entries()) calls.push_back(entry.op);
    return calls;
  }
};

TEST_F(CleanDriver, AnEmptyListReturnsAtOnceAndLeavesTheCaptions) {
  frmPubMain.lblProgS.Caption = u"as it was";
  frmPubMain.lblTime.Caption = u"so is this";
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(frmPubMain.lblProgS.Caption, Text(u"as it was"));
  EXPECT_EQ(frmPubMain.lblTime.Caption, Text(u"so is this"));
  EXPECT_FALSE(frmPubMain.lblProgMI.Visible);
}

TEST_F(CleanDriver, NothingHappensWhileAScanRuns) {
  AddFileRow(u"a.txt");
  frmPubMain.sbtCancel.Visible = true;
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(ResultCount(), 1);
  EXPECT_TRUE(FileThere(u"C:\\Work\\a.txt"));
}

TEST_F(CleanDriver, AListWithNoTickedRowRunsThrough) {
  AddFileRow(u"a.txt");
  frmPubMain.lsvResult.Row(1).SetChecked(false);
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(ResultCount(), 1);
  EXPECT_TRUE(FileThere(u"C:\\Work\\a.txt"));
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 3000);
  EXPECT_EQ(frmPubMain.lblProgMI.Caption, Text(u"100%"));
  EXPECT_EQ(frmPubMain.lblProgS.Caption, Text(u"Finished."));
  EXPECT_EQ(Sum(), u"Sum: 0 item, 0. KB cleaned.");
}

TEST_F(CleanDriver, OneCleanedItemReadsItemAndTwoReadItems) {
  AddFileRow(u"a.txt", u"1,536.5");
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(Sum(), u"Sum: 1 item, 1,536.5 KB cleaned.");
  EXPECT_EQ(ResultCount(), 0);
  AddFileRow(u"a.txt");
  AddFileRow(u"b.txt");
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(Sum(), u"Sum: 2 items, 4. KB cleaned.");
}

TEST_F(CleanDriver, RepairIsCleanUnderItsOtherName) {
  AddFileRow(u"a.txt");
  frmPubMain.sbtRepair.Click();
  EXPECT_FALSE(FileThere(u"C:\\Work\\a.txt"));
}

TEST_F(CleanDriver, TheBarMovesEveryTwentySixRows) {
  const struct {
    int rows, step, updates;
  } table[] = {{1, 1, 1}, {25, 1, 1}, {26, 3000, 1}, {27, 2889, 2}, {52, 1500, 2}, {53, 1472, 3}};
  for (const auto& row : table) {
    ClearResults();
    for (int i = 0; i < row.rows; ++i) Add(u"X");
    for (int i = 1; i <= row.rows; ++i) frmPubMain.lsvResult.Row(i).SetChecked(false);
    struct Watch : ControlPeer {
      int updates = 0;
      int last = 0;
      void ModelChanged() override {
        const int width = frmPubMain.lblProgMI.Width;
        if (width != last && width != 0) ++updates;
        last = width;
      }
    } watch;
    frmPubMain.lblProgMI.peer = &watch;
    frmPubMain.sbtClean.Click();
    frmPubMain.lblProgMI.peer = nullptr;
    EXPECT_EQ(ProgressStep, row.step) << row.rows;
    // The jump to full at the end is one more where the bar wasn't there yet.
    const int jump = row.updates * row.step == 3000 ? 0 : 1;
    EXPECT_EQ(watch.updates, row.updates + jump) << row.rows;
  }
}

TEST_F(CleanDriver, MethodsOfAFile) {
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

TEST_F(CleanDriver, SavingTakesTheSuffixOneAndNoOther) {
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

TEST_F(CleanDriver, AMissingBackupFolderLeavesTheFileAndItsRow) {
  CleaningMethod = u"S";
  BackupFolder = u"C:\\Nowhere";
  AddFileRow(u"a.txt");
  frmPubMain.sbtClean.Click();
  EXPECT_TRUE(FileThere(u"C:\\Work\\a.txt"));
  EXPECT_EQ(ResultCount(), 1);
}

TEST_F(CleanDriver, MethodsOfAFolder) {
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

TEST_F(CleanDriver, ASavedFolderTakesTheSuffixOneAndGoesEvenWithoutACopy) {
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

TEST_F(CleanDriver, AFolderOfAnotherContentThanExpectedGoesWithIt) {
  CleaningMethod = u"D";
  AddFolderRow(u"full");
  machine.files.AddFile(u"C:\\Work\\full\\inner\\x.txt", {.attributes = platform::kReadOnly});
  frmPubMain.sbtClean.Click();
  EXPECT_FALSE(FolderThere(u"C:\\Work\\full"));
}

TEST_F(CleanDriver, ALinkInARemovedFolderLosesItselfAndNothingBehindIt) {
  CleaningMethod = u"D";
  machine.files.AddFile(u"C:\\Precious\\keep.txt");
  AddFolderRow(u"full");
  machine.files.AddLink(u"C:\\Work\\full\\link", u"C:\\Precious");
  machine.files.AddLink(u"C:\\Work\\place", u"C:\\Precious");
  Add(u"P", u"C:\\Work", u"place", u"0.");
  frmPubMain.sbtClean.Click();
  EXPECT_FALSE(FolderThere(u"C:\\Work\\full"));
  EXPECT_FALSE(machine.files.Look(u"C:\\Work\\place").has_value());
  EXPECT_TRUE(FileThere(u"C:\\Precious\\keep.txt"));
}

TEST_F(CleanDriver, ANamedFileGoesByTheMethodAndIsSavedUnderItsOwnName) {
  CleaningMethod = u"S";
  machine.files.AddFile(u"C:\\WINDOWS\\MEMORY.DMP", {.content = "dump"});
  Add(u"FT: C:\\WINDOWS\\MEMORY.DMP", u"C:\\WINDOWS", u"Memory Dump", u"1.5");
  frmPubMain.sbtClean.Click();
  EXPECT_FALSE(FileThere(u"C:\\WINDOWS\\MEMORY.DMP"));
  EXPECT_EQ(machine.files.ReadFile(u"C:\\TVXBak\\MEMORY.DMP"), "dump");
  EXPECT_EQ(Sum(), u"Sum: 1 item, 1.5 KB cleaned.");
}

TEST_F(CleanDriver, AVanishedTargetCountsAsCleaned) {
  Add(u"F", u"C:\\Work", u"gone.txt", u"3.");
  Add(u"P", u"C:\\Work", u"gone", u"0.");
  Add(u"FT: C:\\gone.dmp", u"C:\\", u"x", u"0");
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(ResultCount(), 0);
  EXPECT_EQ(Sum(), u"Sum: 3 items, 3. KB cleaned.");
}

TEST_F(CleanDriver, ALockedFileStaysTickedAndTheNextCleanTriesAgain) {
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

TEST_F(CleanDriver, AFileInTheRootOfADriveIsFoundWithItsTwoBackslashes) {
  machine.files.AddFile(u"C:\\root.tmp");
  Add(u"F", u"C:\\", u"root.tmp", u"0.");
  frmPubMain.sbtClean.Click();
  EXPECT_FALSE(FileThere(u"C:\\root.tmp"));
  EXPECT_EQ(ResultCount(), 0);
}

TEST_F(CleanDriver, ARowWithoutANameTouchesNothing) {
  CleaningMethod = u"D";
  machine.files.AddFile(u"C:\\Work\\keep.txt");
  Add(u"P", u"C:\\Work", u"", u"0.");
  Add(u"P", u"", u"", u"0.");
  Add(u"F", u"", u"", u"0.");
  frmPubMain.sbtClean.Click();
  EXPECT_TRUE(FileThere(u"C:\\Work\\keep.txt"));
  ASSERT_EQ(ResultCount(), 1) << "the folder still stands, so its row does";
}

TEST_F(CleanDriver, ASizeThatIsNoNumberAddsNothing) {
  AddFileRow(u"a.txt", u"");
  Add(u"RE", u"Each Recycle Bin", u"bin", u"Over 2,097,152");
  AddFileRow(u"b.txt", u"2.5");
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(Sum(), u"Sum: 3 items, 2.5 KB cleaned.");
}

TEST_F(CleanDriver, DeletesARegistryValueAndAKeyWithItsSubkeys) {
  Seed(Hive::CurrentUser, u"Software\\X", u"name", u"d");
  Seed(Hive::CurrentUser, u"Software\\X", u"other", u"d");
  Seed(Hive::CurrentUser, u"Software\\Y\\below\\deep", u"v", u"d");
  Add(u"RI: HKEY_CURRENT_USER, Software\\X, name");
  Add(u"RK: HKEY_CURRENT_USER, Software\\Y");
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(machineRegistry.ReadValue(Hive::CurrentUser, u"Software\\X", u"name"), std::nullopt);
  EXPECT_EQ(machineRegistry.ReadValue(Hive::CurrentUser, u"Software\\X", u"other"), u"d");
  EXPECT_FALSE(machineRegistry.KeyExists(Hive::CurrentUser, u"Software\\Y"));
  EXPECT_TRUE(machineRegistry.KeyExists(Hive::CurrentUser, u"Software"));
  EXPECT_EQ(Sum(), u"Sum: 2 items, 0. KB cleaned.");
}

TEST_F(CleanDriver, ARegistryRowGoesWhetherOrNotItsActionWorked) {
  Seed(Hive::CurrentUser, u"Software\\Denied", u"v", u"d");
  machineRegistry.Deny(Hive::CurrentUser, u"Software\\Denied");
  Add(u"RI: HKEY_CURRENT_USER, Software\\Denied, v");
  Add(u"RK: HKEY_CURRENT_USER, Software\\Denied");
  Add(u"RK: HKEY_CURRENT_USER, Software\\Missing");
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(ResultCount(), 0);
  machineRegistry.Allow(Hive::CurrentUser, u"Software\\Denied");
  EXPECT_EQ(machineRegistry.ReadValue(Hive::CurrentUser, u"Software\\Denied", u"v"), u"d");
}

TEST_F(CleanDriver, AValueNameWithACommaDeletesTheOneNamedBeforeIt) {
  Seed(Hive::CurrentUser, u"Software\\X", u"a", u"1");
  Seed(Hive::CurrentUser, u"Software\\X", u"a, b", u"2");
  Add(u"RI: HKEY_CURRENT_USER, Software\\X, a, b");
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(machineRegistry.ReadValue(Hive::CurrentUser, u"Software\\X", u"a"), std::nullopt);
  EXPECT_EQ(machineRegistry.ReadValue(Hive::CurrentUser, u"Software\\X", u"a, b"), u"2");
}

TEST_F(CleanDriver, AnUnknownHiveIsThatOfAllUsers) {
  Seed(Hive::Users, u"S-1\\K", u"v", u"d");
  Seed(Hive::CurrentUser, u"S-1\\K", u"v", u"d");
  Add(u"RI: HKEY_SOMEWHERE, S-1\\K, v");
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(machineRegistry.ReadValue(Hive::Users, u"S-1\\K", u"v"), std::nullopt);
  EXPECT_EQ(machineRegistry.ReadValue(Hive::CurrentUser, u"S-1\\K", u"v"), u"d");
}

TEST_F(CleanDriver, NoTagDeletesAWholeHive) {
  Seed(Hive::CurrentUser, u"Software", u"v", u"d");
  Seed(Hive::Users, u"S-1", u"v", u"d");
  for (const TextView tag : {u"RK: HKEY_CURRENT_USER, ", u"RK: HKEY_CURRENT_USER", u"RK: ", u"RK"}) Add(tag);
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(ResultCount(), 0);
  EXPECT_TRUE(machineRegistry.KeyExists(Hive::CurrentUser, u"Software"));
  EXPECT_TRUE(machineRegistry.KeyExists(Hive::Users, u"S-1"));
}

TEST_F(CleanDriver, SeveralValuesKeepTheirBlanksAndMissTheRealOnes) {
  constexpr TextView kTray = u"Software\\Classes\\TrayNotify";
  Seed(Hive::CurrentUser, kTray, u"IconStreams", u"1");
  Seed(Hive::CurrentUser, kTray, u"IconStreams ", u"2");
  Seed(Hive::CurrentUser, kTray, u"PastIconsStream", u"3");
  Seed(Hive::Users, kTray, u"PastIconsStream", u"4");
  Add(Concat(u"RIs: HKEY_CURRENT_USER, ", kTray, u", IconStreams MORVTVXRISSEP HKEY_CURRENT_USER, ", kTray,
             u", PastIconsStream"));
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(machineRegistry.ReadValue(Hive::CurrentUser, kTray, u"IconStreams"), u"1");
  EXPECT_EQ(machineRegistry.ReadValue(Hive::CurrentUser, kTray, u"IconStreams "), std::nullopt);
  EXPECT_EQ(machineRegistry.ReadValue(Hive::CurrentUser, kTray, u"PastIconsStream"), u"3");
  EXPECT_EQ(machineRegistry.ReadValue(Hive::Users, kTray, u"PastIconsStream"), std::nullopt);
  EXPECT_EQ(Sum(), u"Sum: 1 item, 0. KB cleaned.");
}

TEST_F(CleanDriver, ACommandIsRunAndNotWaitedFor) {
  Add(u"Cmd: RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 16", u"C:\\Cache", u"IE Cache (12 Files)",
      u"12.");
  frmPubMain.sbtClean.Click();
  ASSERT_EQ(machine.journal.Entries().size(), 1U);
  const auto& call = machine.journal.Entries()[0];
  EXPECT_EQ(call.op, u"RunTarget");
  EXPECT_EQ(call.Get(u"target"), u"RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 16");
  EXPECT_EQ(call.Get(u"style"), u"3");
  EXPECT_EQ(Sum(), u"Sum: 1 item, 12. KB cleaned.");
}

TEST_F(CleanDriver, ALockedFileIsLeftForTheRestartUnderItsDoubledName) {
  machine.files.AddFile(u"C:\\Cache\\index.dat", {.content = "x"});
  Add(u"DUR", u"C:\\Cache\\index.dat", u"index.dat", u"32.");
  frmPubMain.sbtClean.Click();
  ASSERT_EQ(Calls(), std::vector<Text>{u"DeleteAtRestart"});
  EXPECT_EQ(machine.journal.Entries()[0].Get(u"path"), u"C:\\Cache\\index.dat\\index.dat");
  EXPECT_TRUE(FileThere(u"C:\\Cache\\index.dat"));
  EXPECT_EQ(ResultCount(), 0);
  EXPECT_EQ(Sum(), u"Sum: 1 item, 32. KB cleaned.");
}

TEST_F(CleanDriver, EmptiesTheBinsAndClearsTheNamedLog) {
  machine.facts.Set(u"Event Logs", u"Security", u"7");
  Add(u"RE", u"Each Recycle Bin", u"bin", u"4.");
  Add(u"WSL: Security", u"Windows System", u"Security Category (7 Items)");
  Add(u"WSL: Nothing", u"Windows System", u"no such log");
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(Calls(), (std::vector<Text>{u"ClearEventLog", u"EmptyRecycleBin"}))
      << "from the last row to the first; a log that can't be opened has no name any more";
  EXPECT_EQ(machine.facts.Value(u"Event Logs", u"Security"), u"0");
  EXPECT_EQ(ResultCount(), 0);
}

TEST_F(CleanDriver, AnUnknownKindIsCountedAddsItsSizeAndDoesNothing) {
  machine.files.AddFile(u"C:\\Work\\keep.txt");
  Add(u"X: y", u"C:\\Work", u"keep.txt", u"5.");
  Add(u"", u"C:\\Work", u"keep.txt", u"1.");
  Add(u"f", u"C:\\Work", u"keep.txt", u"1.");
  Add(u"FT", u"C:\\Work", u"keep.txt", u"1.");
  frmPubMain.sbtClean.Click();
  EXPECT_TRUE(FileThere(u"C:\\Work\\keep.txt"));
  EXPECT_EQ(ResultCount(), 0);
  EXPECT_EQ(Sum(), u"Sum: 4 items, 8. KB cleaned.");
  EXPECT_TRUE(Calls().empty());
}

TEST_F(CleanDriver, UntickedRowsStayAndTickedOnesAroundThemGo) {
  for (int i = 0; i < 100; ++i) AddFileRow(ToText(i));
  for (int row = 1; row <= 100; row += 3) frmPubMain.lsvResult.Row(row).SetChecked(false);
  lsvResult_ColumnClick(2);
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(ResultCount(), 34);
  for (const RowFields& row : ResultRows()) {
    EXPECT_FALSE(row.checked);
    EXPECT_TRUE(FileThere(Concat(u"C:\\Work\\", row.name)));
  }
  EXPECT_TRUE(frmPubMain.lsvResult.Sorted);
}

TEST_F(CleanDriver, ElapsedTimeCountsFromItsStartAndFromTheScanForOneClick) {
  struct Step : ControlPeer {
    machine::StandingClock& clock;
    explicit Step(machine::StandingClock& c) : clock(c) { frmPubMain.lblProgMI.peer = this; }
    ~Step() override { frmPubMain.lblProgMI.peer = nullptr; }
    void ModelChanged() override {
      if (frmPubMain.lblProgMI.Caption == Text(u"100%")) clock.Set(101'000);
    }
  };
  clock.Set(100'000);
  frmPubMain.JobStart = 90'000;
  frmPubMain.lblProgMI.Caption = u"";
  Add(u"X");
  {
    const Step step(clock);
    frmPubMain.sbtClean.Click();
  }
  EXPECT_EQ(frmPubMain.lblTime.Caption, Text(u"1 seconds."));
  clock.Set(100'000);
  frmPubMain.JobStart = 90'000;
  frmPubMain.picOne.BorderStyle = 1;
  frmPubMain.lblProgMI.Caption = u"";
  Add(u"X");
  {
    const Step step(clock);
    frmPubMain.sbtClean.Click();
  }
  EXPECT_EQ(frmPubMain.lblTime.Caption, Text(u"11 seconds."));
}

class Hand : public platform::EventQueue {
 public:
  explicit Hand(std::function<void()> act) : act_(std::move(act)) { platform::eventQueue = this; }
  ~Hand() override { platform::eventQueue = nullptr; }
  void Yield() override {
    if (++yields == 1) act_();
  }
  int yields = 0;

 private:
  std::function<void()> act_;
};

TEST_F(CleanDriver, YieldsOnceBeforeTheFirstRowAndNeverAgain) {
  AddFileRow(u"a.txt");
  AddFileRow(u"b.txt");
  Hand hand([] {
    EXPECT_TRUE(frmPubMain.CleanBusy);
    EXPECT_TRUE(frmPubMain.webGIF.Visible);
    EXPECT_EQ(frmPubMain.lblProgMO.BorderStyle, 1);
    EXPECT_EQ(frmPubMain.lblTime.Caption, Text(u"? second(s)."));
    EXPECT_EQ(Sum(), u"Sum: cleaned/repaired ? item(s), ? KB.");
    EXPECT_EQ(frmPubMain.lblProgS.Caption, Text(u"Cleaning/repairing the checked items, please wait..."));
    frmPubMain.sbtScan.Click();
    EXPECT_EQ(ResultCount(), 2) << "a scan doesn't start during a clean";
  });
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(hand.yields, 1);
  EXPECT_FALSE(frmPubMain.CleanBusy);
  EXPECT_FALSE(frmPubMain.webGIF.Visible);
  EXPECT_TRUE(frmPubMain.lsvResult.Enabled);
}

TEST_F(CleanDriver, ASecondCleanInThatYieldLeavesTheFirstNothingToDo) {
  for (int i = 0; i < 5; ++i) AddFileRow(ToText(i));
  frmPubMain.lsvResult.Row(3).SetChecked(false);
  Hand hand([] { frmPubMain.sbtClean.Click(); });
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(ResultCount(), 1);
  EXPECT_EQ(Sum(), u"Sum: 0 item, 0. KB cleaned.");
}

// One row of every kind, each call on files failing in turn: whatever fails, rows and count agree with what
// stands on the disk afterwards, and no file of another name is touched.
TEST_F(CleanDriver, EachFailingCallInTurnLeavesRowsAndDiskInAgreement) {
  for (const TextView method : {u"D", u"R", u"S"}) {
    int callsInAll = 1;
    for (int failing = 0; failing <= callsInAll; ++failing) {
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
      for (const RowFields& row : ResultRows()) {
        EXPECT_TRUE(row.checked);
        const bool folder = row.tag == u"P";
        const Text path =
            row.tag.starts_with(u"FT") ? u"C:\\Work\\dump.dmp" : row.location + u"\\" + row.name;
        EXPECT_TRUE(folder ? FolderThere(path) : FileThere(path)) << Narrow(path) << " call " << failing;
        ++kept;
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

}  // namespace
}  // namespace tavix::mdlPubSelf
