#include "clean/clean_driver.h"

#include "clean/clean_test.h"
#include "doubles/memory_file_system.h"
#include "doubles/memory_shell.h"
#include "doubles/memory_store.h"
#include "forms/main_form.h"
#include "frame/start_up.h"
#include "frame/support/pub_system.h"
#include "platform/event_logs.h"
#include "platform/event_queue.h"
#include "platform/machine/formats/machine_facts.h"
#include "platform/machine/host/machine_clock.h"
#include "platform/machine/services/machine_registry.h"
#include "platform/registry.h"
#include "scan/scan_driver.h"
#include "support/case.h"

namespace tavix::mdlPubSelf {
namespace {

using platform::Hive;

class CleanDriver : public CleanTest {};

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

TEST_F(CleanDriver, NoButtonCanBePressedWhileRowsAreCleaned) {
  for (int i = 0; i < 3; ++i) AddFileRow(Concat(ToText(i), u".txt"));
  const auto buttons = [] {
    MainForm& form = frmPubMain;
    std::vector<bool> enabled{form.sbtScan.Enabled, form.sbtClean.Enabled, form.sbtRepair.Enabled,
                              form.cbxAll.Enabled};
    for (const Button& button : form.sbtToolbar) enabled.push_back(button.Enabled);
    return enabled;
  };
  int paints = 0;
  const auto look = [&] {
    ++paints;
    EXPECT_EQ(buttons(), std::vector<bool>(8, false));
  };
  frmPubMain.Refresh = look;
  frmPubMain.KeepPainted = look;
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(paints, 4) << "before the first row, and at each row";
  EXPECT_EQ(buttons(), std::vector<bool>(8, true));
}

TEST_F(CleanDriver, TheEndOfTheSessionEndsIt) {
  for (int i = 0; i < 3; ++i) AddFileRow(Concat(ToText(i), u".txt"));
  int paints = 0;
  frmPubMain.KeepPainted = [&] {
    if (++paints == 2) Form_Unload();
  };
  frmPubMain.sbtClean.Click();
  EXPECT_FALSE(FileThere(u"C:\\Work\\2.txt"));
  EXPECT_TRUE(FileThere(u"C:\\Work\\1.txt"));
  EXPECT_TRUE(FileThere(u"C:\\Work\\0.txt"));
  EXPECT_FALSE(frmPubMain.CleanBusy);
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
    // At the end the bar jumps to full: one more update, unless it is full already.
    const int jump = row.updates * row.step == 3000 ? 0 : 1;
    EXPECT_EQ(watch.updates, row.updates + jump) << row.rows;
  }
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
  EXPECT_EQ(machineRegistry.KeyExists(Hive::CurrentUser, u"Software\\Y"), false);
  EXPECT_EQ(machineRegistry.KeyExists(Hive::CurrentUser, u"Software"), true);
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
  EXPECT_EQ(machineRegistry.KeyExists(Hive::CurrentUser, u"Software"), true);
  EXPECT_EQ(machineRegistry.KeyExists(Hive::Users, u"S-1"), true);
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
  EXPECT_EQ(Calls(), (std::vector<Text>{u"ClearEventLog", u"ClearEventLog", u"EmptyRecycleBin"}))
      << "from the last row to the first; a log that can't be opened is asked for all the same";
  EXPECT_EQ(machine.journal.Entries()[0].Get(u"log"), u"Nothing");
  EXPECT_EQ(machine.facts.Value(u"Event Logs", u"Security"), u"0");
  EXPECT_EQ(ResultCount(), 0);
}

TEST_F(CleanDriver, TheMethodChangesNothingButFilesAndFolders) {
  for (const TextView method : {u"D", u"R", u"S"}) {
    SCOPED_TRACE(Case(method));
    CleaningMethod = method;
    Seed(Hive::CurrentUser, u"Software\\X", u"name", u"d");
    Seed(Hive::CurrentUser, u"Software\\Y\\below", u"v", u"d");
    machine.facts.Set(u"Event Logs", u"Security", u"7");
    Add(u"RI: HKEY_CURRENT_USER, Software\\X, name");
    Add(u"RK: HKEY_CURRENT_USER, Software\\Y");
    Add(u"Cmd: RunDll32.exe InetCpl.cpl,ClearMyTracksByProcess 16");
    Add(u"WSL: Security", u"Windows System", u"Security Category (7 Items)");
    Add(u"RE", u"Each Recycle Bin", u"bin", u"4.");
    machine.journal.Clear();
    frmPubMain.sbtClean.Click();
    EXPECT_EQ(ResultCount(), 0);
    EXPECT_EQ(Calls(), (std::vector<Text>{u"EmptyRecycleBin", u"ClearEventLog", u"RunTarget"}));
    EXPECT_EQ(machineRegistry.ReadValue(Hive::CurrentUser, u"Software\\X", u"name"), std::nullopt);
    EXPECT_EQ(machineRegistry.KeyExists(Hive::CurrentUser, u"Software\\Y"), false);
    EXPECT_EQ(machine.facts.Value(u"Event Logs", u"Security"), u"0");
    machine.fileSystem.List(u"C:\\TVXBak", [](const platform::DirectoryEntry& entry) {
      ADD_FAILURE() << Narrow(entry.name) << " was kept";
    });
  }
}

TEST_F(CleanDriver, ALogIsOpenedClearedAndClosedByItsHandleAlsoWhereItCannotBeOpened) {
  struct Logs : platform::EventLogs {
    Logs() { platform::eventLogs = this; }
    Handle Open(TextView log) override {
      calls.push_back(Concat(u"open ", log));
      return log == u"Security" ? 7 : 0;
    }
    std::optional<uint32_t> Count(Handle) override { return std::nullopt; }
    bool Clear(Handle log) override {
      calls.push_back(Concat(u"clear ", ToText(static_cast<long long>(log))));
      return log != 0;
    }
    void Close(Handle log) override {
      calls.push_back(Concat(u"close ", ToText(static_cast<long long>(log))));
    }
    std::vector<Text> calls;
  } logs;
  Add(u"WSL: Nothing", u"Windows System", u"no such log");
  Add(u"WSL: Security", u"Windows System", u"Security Category (7 Items)");
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(logs.calls, (std::vector<Text>{u"open Security", u"clear 7", u"close 7", u"open Nothing",
                                           u"clear 0", u"close 0"}));
}

TEST_F(CleanDriver, TheBinsAreEmptiedOnBehalfOfTheMainWindow) {
  struct Shell : machine::MachineShell {
    using MachineShell::MachineShell;
    bool EmptyRecycleBin(platform::WindowHandle owner) override {
      owners.push_back(owner);
      return MachineShell::EmptyRecycleBin(owner);
    }
    std::vector<platform::WindowHandle> owners;
  } shell(machine.store, machine.fileSystem, machine.facts, machine.journal);
  pubSystem = clsPubSystem({.shell = &shell});
  frmPubMain.hWnd = 4711;
  Add(u"RE", u"Each Recycle Bin", u"bin", u"4.");
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(shell.owners, std::vector<platform::WindowHandle>{4711});
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
    SCOPED_TRACE(Case(row.name));
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
  ~Hand() override { platform::eventQueue = platform::noEventQueue; }
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

TEST_F(CleanDriver, WaitsForTheAnimationBeforeTheFirstRow) {
  AddFileRow(u"a.txt");
  clock.Set(1'000'000);
  frmPubMain.webGIF.Busy = true;
  struct Waiting : platform::EventQueue {
    Waiting() { platform::eventQueue = this; }
    ~Waiting() override { platform::eventQueue = platform::noEventQueue; }
    void Yield() override {
      EXPECT_EQ(ResultCount(), 1);
      if (++yields == 3) frmPubMain.webGIF.Busy = false;
    }
    int yields = 0;
  } waiting;
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(waiting.yields, 3);
  EXPECT_EQ(ResultCount(), 0);
}

TEST_F(CleanDriver, TheTimeOfTheWaitForTheAnimationCounts) {
  AddFileRow(u"a.txt");
  clock.Set(1'000'000);
  Hand hand([this] { clock.Set(1'007'000); });
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(frmPubMain.lblTime.Caption, Text(u"7 seconds."));
}

TEST_F(CleanDriver, WhileRowsAreWorkedOnTheListIsOutOfReachAndTheBarIsSeen) {
  AddFileRow(u"a.txt");
  AddFileRow(u"b.txt");
  struct Onlooker : ControlPeer {
    // Called for each row that is removed.
    void ModelChanged() override {
      if (ResultCount() == 0 || ResultCount() == seen) return;
      seen = ResultCount();
      ++looks;
      EXPECT_FALSE(frmPubMain.lsvResult.Enabled);
      EXPECT_TRUE(frmPubMain.lblProgMI.Visible);
      EXPECT_TRUE(frmPubMain.webGIF.Visible);
      EXPECT_TRUE(frmPubMain.CleanBusy);
    }
    int looks = 0;
    int seen = 2;
  } onlooker;
  frmPubMain.lsvResult.peer = &onlooker;
  frmPubMain.sbtClean.Click();
  frmPubMain.lsvResult.peer = nullptr;
  EXPECT_EQ(onlooker.looks, 1);
  EXPECT_TRUE(frmPubMain.lsvResult.Enabled);
  EXPECT_TRUE(frmPubMain.lblProgMI.Visible);
}

TEST_F(CleanDriver, AScanInTheYieldAfterASecondCleanIsRefused) {
  AddFileRow(u"a");
  bool scanned = false;
  frmPubMain.lst.Clear();
  Hand hand([&] {
    frmPubMain.sbtClean.Click();
    EXPECT_TRUE(frmPubMain.CleanBusy) << "the first clean is still under way";
    AddFileRow(u"unseen");
    frmPubMain.sbtScan.Click();
    scanned = ResultCount() == 0;
    frmPubMain.lsvResult.Row(1).SetChecked(false);
  });
  frmPubMain.sbtClean.Click();
  EXPECT_FALSE(scanned);
  EXPECT_FALSE(frmPubMain.CleanBusy);
  EXPECT_TRUE(FileThere(u"C:\\Work\\unseen"));
}

TEST_F(CleanDriver, AProgramThatIsEndedInThatYieldCleansNothing) {
  AddFileRow(u"a");
  Add(u"WSL: Security", u"Windows System", u"Security Category (7 Items)");
  Hand hand([] { Form_Unload(); });
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(ResultCount(), 2);
  EXPECT_TRUE(FileThere(u"C:\\Work\\a"));
  EXPECT_TRUE(Calls().empty());
}

TEST_F(CleanDriver, WhatTheSystemWouldTakeForSomethingElseStays) {
  for (const TextView method : {u"D", u"R", u"S"}) {
    CleaningMethod = Text(method);
    ClearResults();
    machine.files.AddFile(u"C:\\Work\\data\\kept");
    machine.files.AddFile(u"C:\\Work\\x.txt");
    Add(u"P", u"C:\\Work", u"data ");
    Add(u"P", u"C:\\Work", u" ");
    Add(u"P", u"C:\\Work\\data", u"...");
    Add(u"P", u"C:\\Work\\data.", u"none");
    Add(u"F", u"C:\\Work", u"x.txt.");
    Add(u"F", u"C:\\Work", u" ");
    Add(u"FT: C:\\Work\\x.txt.", u"C:\\Work", u"x.txt.");
    Add(u"DUR", u"C:\\Work", u"x.txt ");
    machine.journal.Clear();
    frmPubMain.sbtClean.Click();
    EXPECT_TRUE(FileThere(u"C:\\Work\\data\\kept")) << Narrow(method);
    EXPECT_TRUE(FileThere(u"C:\\Work\\x.txt")) << Narrow(method);
    EXPECT_TRUE(Calls().empty()) << Narrow(method);
    EXPECT_EQ(ResultCount(), 7) << Narrow(method) << ": only the row that is never verified goes";
  }
}

TEST_F(CleanDriver, WhatHasBecomeAnotherKindSinceIsNotSentToTheBin) {
  CleaningMethod = Text(u"R");
  machine.files.AddFile(u"C:\\Work\\was file\\kept");
  machine.files.AddFile(u"C:\\Work\\was folder");
  Add(u"F", u"C:\\Work", u"was file");
  Add(u"P", u"C:\\Work", u"was folder");
  machine.journal.Clear();
  frmPubMain.sbtClean.Click();
  EXPECT_TRUE(Calls().empty());
  EXPECT_TRUE(FileThere(u"C:\\Work\\was file\\kept"));
  EXPECT_TRUE(FileThere(u"C:\\Work\\was folder"));
}

TEST_F(CleanDriver, ASecondCleanInThatYieldLeavesTheFirstNothingToDo) {
  for (int i = 0; i < 5; ++i) AddFileRow(ToText(i));
  frmPubMain.lsvResult.Row(3).SetChecked(false);
  Hand hand([] { frmPubMain.sbtClean.Click(); });
  frmPubMain.sbtClean.Click();
  EXPECT_EQ(ResultCount(), 1);
  EXPECT_EQ(Sum(), u"Sum: 0 item, 0. KB cleaned.");
}

}  // namespace
}  // namespace tavix::mdlPubSelf
