#include "scan/scan_driver.h"

#include "forms/main_form.h"
#include "frame/settings.h"
#include "frame/support/pub_registry.h"
#include "platform/event_queue.h"
#include "platform/machine/host/machine_clock.h"
#include "scan/result_items.h"
#include "scan/scan_function.h"
#include "support/case.h"
#include "support/program_test.h"

namespace tavix::mdlPubSelf {
namespace {

// Typed URLs of an empty registry add no row. The auto-fill history always adds one.
constexpr TextView kAddsNothing = u"iertu";
constexpr TextView kAddsOne = u"ieafh";

class ScanDriver : public ProgramTest {
 protected:
  ScanDriver() {
    Start();
    frmPubMain.lblProgMO.Width = 3000;
    UntickAll();
  }

  static void UntickAll() {
    for (int i = 1; i <= frmPubMain.trvPrivacy.NodeCount(); ++i)
      frmPubMain.trvPrivacy.NodeAt(i)->Checked = false;
  }
  static void Tick(std::initializer_list<TextView> keys) {
    for (const TextView key : keys) frmPubMain.trvPrivacy.NodeByKey(key)->Checked = true;
  }
  // Makes `page` the open page, with these ticked rows after the master row.
  static void OpenListPage(PictureBox& page, std::initializer_list<TextView> rows) {
    for (PictureBox* picture : frmPubMain.PagePictures()) picture->BorderStyle = 0;
    page.BorderStyle = 1;
    frmPubMain.lst.Visible = true;
    frmPubMain.lst.Clear();
    frmPubMain.lst.AddItem(u"Uncheck All");
    for (const TextView row : rows) frmPubMain.lst.AddItem(row);
    for (int row = 0; row < frmPubMain.lst.ListCount(); ++row) frmPubMain.lst.SetSelected(row, true);
  }
};

// Acts once as the user would, at the first yield.
class UserAtYield : public platform::EventQueue {
 public:
  explicit UserAtYield(std::function<void()> act) : act_(std::move(act)) { platform::eventQueue = this; }
  void Yield() override { act_(); }

 private:
  std::function<void()> act_;
};

// Acts at each change of the status line. A function changes it while it runs.
class UserAtStatus : public ControlPeer {
 public:
  explicit UserAtStatus(std::function<void()> act) : act_(std::move(act)) { frmPubMain.lblProgS.peer = this; }
  ~UserAtStatus() override { frmPubMain.lblProgS.peer = nullptr; }
  void ModelChanged() override { act_(); }

 private:
  std::function<void()> act_;
};

TEST_F(ScanDriver, NothingTickedRunsThroughAndLeavesTheBarEmpty) {
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(ProgressStep, 3000);
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 0);
  EXPECT_TRUE(frmPubMain.lblProgMI.Visible);
  EXPECT_EQ(frmPubMain.lblProgMI.Caption, Text());
  EXPECT_EQ(frmPubMain.lblProgS.Caption, Text(u"Finished, no item found."));
  EXPECT_EQ(frmPubMain.lblSum.Caption, Text(u"Sum: 0 item, 0. KB found."));
  EXPECT_EQ(frmPubMain.lblTime.Caption, Text(u"0 second."));
}

TEST_F(ScanDriver, NothingTickedOnTheRegistryPage) {
  OpenListPage(frmPubMain.picRegistry, {});
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(frmPubMain.lblProgS.Caption, Text(u"Finished, no issue found."));
  EXPECT_EQ(frmPubMain.lblSum.Caption, Text(u"Sum: 0 item  found."));
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 0);
}

TEST_F(ScanDriver, OneFunctionFillsTheBar) {
  Tick({kAddsNothing});
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 3000);
  EXPECT_EQ(frmPubMain.lblProgMI.Caption, Text(u"100%"));
}

TEST_F(ScanDriver, BranchNodesAreNoFunctions) {
  Tick({u"ie", u"we", kAddsNothing, u"werh"});
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(ProgressStep, 1500);
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 3000);
}

TEST_F(ScanDriver, TheStepIsRoundedHalfToEvenSoTheBarMayMissItsEnd) {
  frmPubMain.lblProgMO.Width = 3001;
  Tick({kAddsNothing, u"werh"});
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(ProgressStep, 1500) << "half of 3001 is a tie";
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 3000);
  EXPECT_EQ(frmPubMain.lblProgMI.Caption, Text(u"100%")) << "3000 / 3001 rounds to it";
}

TEST_F(ScanDriver, AWidthOverSixteenBitsLeavesTheStepAsItWas) {
  ProgressStep = 7;
  frmPubMain.lblProgMO.Width = 40000;
  Tick({kAddsNothing});
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(ProgressStep, 7);
  EXPECT_EQ(frmPubMain.lblProgMI.Caption, Text(u"%")) << "rounds to zero percent";
}

TEST_F(ScanDriver, ThePullBackComesOneStepLate) {
  ProgressStep = 2000;
  std::vector<std::pair<int, Text>> seen;
  for (int i = 0; i < 4; ++i) {
    AdvanceProgressBar();
    seen.emplace_back(frmPubMain.lblProgMI.Width, frmPubMain.lblProgMI.Caption);
  }
  EXPECT_EQ(seen, (std::vector<std::pair<int, Text>>{
                      {2000, u"67%"}, {4000, u"100%"}, {3000, u"100%"}, {5000, u"100%"}}));
}

TEST_F(ScanDriver, ABarWithoutWidthKeepsItsCaption) {
  frmPubMain.lblProgMO.Width = 0;
  frmPubMain.lblProgMI.Caption = u"as it was";
  AdvanceProgressBar();
  EXPECT_EQ(frmPubMain.lblProgMI.Caption, Text(u"as it was"));
}

TEST_F(ScanDriver, ClosingLineAndSumCountRows) {
  Tick({kAddsOne});
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(frmPubMain.lblProgS.Caption,
            Text(u"Finished, please click <Clean> or press <F5> to clean the checked item."));
  EXPECT_EQ(frmPubMain.lblSum.Caption, Text(u"Sum: 1 item, 0. KB found."));
  Tick({u"ieaph"});
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(frmPubMain.lblProgS.Caption,
            Text(u"Finished, please click <Clean> or press <F5> to clean the checked items."));
  EXPECT_EQ(frmPubMain.lblSum.Caption, Text(u"Sum: 2 items, 0. KB found."));
}

TEST_F(ScanDriver, TheRegistryPageHasIssuesAndADoubledBlank) {
  OpenListPage(frmPubMain.picRegistry, {kAddsOne});
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(frmPubMain.lblProgS.Caption,
            Text(u"Finished, please click <Repair> or press <F5> to repair the checked issue."));
  EXPECT_EQ(frmPubMain.lblSum.Caption, Text(u"Sum: 1 item  found."));
  OpenListPage(frmPubMain.picRegistry, {kAddsOne, u"ieaph"});
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(frmPubMain.lblProgS.Caption,
            Text(u"Finished, please click <Repair> or press <F5> to repair the checked issues."));
  EXPECT_EQ(frmPubMain.lblSum.Caption, Text(u"Sum: 2 items  found."));
}

TEST_F(ScanDriver, TheListPageScansTickedRowsButNeverRowZero) {
  OpenListPage(frmPubMain.picSystem, {kAddsOne, u"ieaph", u"weosh"});
  frmPubMain.lst.SetSelected(2, false);
  frmPubMain.ListGuard = true;
  frmPubMain.lst.SetList(0, kAddsOne);
  frmPubMain.ListGuard = false;
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(ProgressStep, 1500);
  EXPECT_EQ(ResultCount(), 2);
  EXPECT_EQ(ResultRows()[1].type, u"Open/Save History");
}

TEST_F(ScanDriver, WithoutAVisibleListNoBranchRuns) {
  OpenListPage(frmPubMain.picSystem, {kAddsOne});
  frmPubMain.lst.Visible = false;
  ProgressStep = 5;
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(ResultCount(), 0);
  EXPECT_EQ(ProgressStep, 5);
  EXPECT_EQ(frmPubMain.lblProgS.Caption, Text(u"Finished, no item found."));
}

TEST_F(ScanDriver, TheAdvancedPageRunsTheAdvancedScanAndLeavesTheBar) {
  OpenListPage(frmPubMain.picAdv, {kAddsOne});
  static int runs = 0;
  runs = 0;
  advancedScan = [] { ++runs; };
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(ResultCount(), 0);
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 0);
}

TEST_F(ScanDriver, OneClickWalksItsListAndEmptyElementsMoveTheBar) {
  OpenListPage(frmPubMain.picOne, {u"ieaph"});
  Functions = u"|ieafh|weosh|no such function|";
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(ProgressStep, 600) << "five elements, the outer two empty";
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 3000);
  EXPECT_EQ(ResultCount(), 2);
}

TEST_F(ScanDriver, OneClickWithoutKeysFindsNothing) {
  OpenListPage(frmPubMain.picOne, {});
  for (const TextView list : {u"", u"|"}) {
    Functions = list;
    frmPubMain.sbtScan.Click();
    EXPECT_EQ(ResultCount(), 0);
    EXPECT_EQ(ProgressStep, list.empty() ? 3000 : 1500);
    EXPECT_EQ(frmPubMain.lblProgMI.Width, list.empty() ? 0 : 3000);
  }
}

TEST_F(ScanDriver, OneClickRunsOutAfterACancelWithTheBarStillMoving) {
  OpenListPage(frmPubMain.picOne, {});
  Functions = u"|iertu|ieafh|weosh|";
  UserAtStatus user([] {
    if (frmPubMain.lblProgS.Caption.Get().starts_with(u"Scanning")) frmPubMain.sbtCancel.Click();
  });
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(ResultCount(), 0);
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 3000);
  EXPECT_EQ(frmPubMain.lblProgS.Caption, Text(u"Canceled, no item found."));
}

TEST_F(ScanDriver, CancelInTheLastFunctionReadsCanceled) {
  Tick({kAddsOne, u"werh"});
  UserAtStatus user([] {
    if (frmPubMain.lblProgS.Caption.Get().starts_with(u"Scanning")) sbtCancel_Click();
  });
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(frmPubMain.lblProgS.Caption,
            Text(u"Canceled, please click <Clean> or press <F5> to clean the checked item."));
  EXPECT_EQ(frmPubMain.lblSum.Caption, Text(u"Sum: 1 item, 0. KB found."));
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 3000) << "the function had begun, so the bar moved on";
  EXPECT_FALSE(CancelRequested);
}

TEST_F(ScanDriver, CancelEndsTheWalkBeforeTheNextNodeAndKeepsTheRows) {
  Tick({kAddsNothing, kAddsOne, u"weosh"});
  UserAtStatus user([] {
    if (frmPubMain.lblProgS.Caption.Get().starts_with(u"Scanning")) sbtCancel_Click();
  });
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(ResultCount(), 0);
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 1000);
  EXPECT_EQ(frmPubMain.lblProgMI.Caption, Text(u"33%"));
}

TEST_F(ScanDriver, CancelEndsAListPage) {
  OpenListPage(frmPubMain.picRegistry, {kAddsOne, kAddsNothing, u"weosh"});
  UserAtStatus user([] {
    if (frmPubMain.lblProgS.Caption.Get().starts_with(u"Scanning")) sbtCancel_Click();
  });
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(frmPubMain.lblProgS.Caption,
            Text(u"Canceled, please click <Repair> or press <F5> to repair the checked issue."));
}

TEST_F(ScanDriver, ElapsedTimeTestsOnZeroAndNotOnOne) {
  const struct {
    platform::DateTime milliseconds;
    const char16_t* text;
  } table[] = {{0, u"0 second."},       {999, u"0 second."},     {1000, u"1 seconds."},
               {1999, u"1 seconds."},   {61000, u"61 seconds."}, {32767000, u"32767 seconds."},
               {32768000, u"0 second."}};
  for (const auto& row : table) {
    frmPubMain.JobStart = 5000;
    clock.Set(5000 + row.milliseconds);
    ShowElapsedTime();
    EXPECT_EQ(frmPubMain.lblTime.Caption, Text(row.text));
  }
}

TEST_F(ScanDriver, AScanOfSixtyOneSeconds) {
  Tick({kAddsNothing});
  clock.Set(1'000'000);
  UserAtStatus user([this] { clock.Set(1'000'000 + 61'500); });
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(frmPubMain.lblTime.Caption, Text(u"61 seconds."));
}

TEST_F(ScanDriver, WhileAScanRunsOnlyCancelAndPagesCanBeOperated) {
  Tick({kAddsNothing});
  int looks = 0;
  UserAtStatus user([&looks] {
    MainForm& form = frmPubMain;
    if (!form.lblProgS.Caption.Get().starts_with(u"Scanning")) return;
    ++looks;
    EXPECT_FALSE(form.sbtScan.Visible);
    EXPECT_TRUE(form.sbtCancel.Visible);
    EXPECT_FALSE(form.lsvResult.Enabled);
    EXPECT_FALSE(form.cbxAll.Enabled);
    EXPECT_FALSE(form.sbtClean.Enabled);
    EXPECT_FALSE(form.sbtRepair.Enabled);
    for (const Button& button : form.sbtToolbar)
      EXPECT_FALSE(button.Enabled) << Case(&button - form.sbtToolbar.data());
    EXPECT_TRUE(form.webGIF.Visible);
    EXPECT_EQ(form.lblProgMO.BorderStyle, 1);
    EXPECT_EQ(form.lblTime.Caption, Text(u"? second(s)."));
    EXPECT_EQ(form.lblSum.Caption, Text(u"Sum: ? item(s), ? KB found."));
    form.sbtScan.Click();  // F3 during a scan
    EXPECT_EQ(form.lblProgMI.Width, 0);
  });
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(looks, 1);
  const MainForm& form = frmPubMain;
  EXPECT_TRUE(form.sbtScan.Visible);
  EXPECT_FALSE(form.sbtCancel.Visible);
  EXPECT_TRUE(form.lsvResult.Enabled);
  EXPECT_TRUE(form.cbxAll.Enabled);
  EXPECT_TRUE(form.sbtClean.Enabled);
  EXPECT_TRUE(form.sbtRepair.Enabled);
  for (const Button& button : form.sbtToolbar)
    EXPECT_TRUE(button.Enabled) << Case(&button - form.sbtToolbar.data());
  EXPECT_FALSE(form.webGIF.Visible);
  EXPECT_EQ(form.lblProgMO.BorderStyle, 1) << "keeps the value that the scan set";
}

TEST_F(ScanDriver, TheWindowIsPaintedOnceTheListIsEmptyAndOutOfReach) {
  Tick({kAddsOne});
  frmPubMain.sbtScan.Click();
  ASSERT_EQ(ResultCount(), 1);
  int paints = 0;
  frmPubMain.Refresh = [&paints] {
    ++paints;
    EXPECT_EQ(ResultCount(), 0) << "no rows of the earlier scan, none of this one";
    EXPECT_TRUE(frmPubMain.sbtCancel.Visible);
    EXPECT_FALSE(frmPubMain.lsvResult.Enabled);
    EXPECT_FALSE(frmPubMain.sbtClean.Enabled);
  };
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(paints, 1);
  EXPECT_EQ(ResultCount(), 1);
  frmPubMain.Refresh = nullptr;
}

TEST_F(ScanDriver, ARegistryScanStartsWithItsOwnSumLine) {
  OpenListPage(frmPubMain.picRegistry, {kAddsNothing});
  Text seen;
  UserAtStatus user([&seen] {
    if (seen.empty()) seen = frmPubMain.lblSum.Caption;
  });
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(seen, u"Sum: ? item(s) found.");
}

TEST_F(ScanDriver, DoesNotStartDuringACleanOrAScan) {
  Tick({kAddsOne});
  frmPubMain.CleanBusy = true;
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(ResultCount(), 0);
  EXPECT_EQ(frmPubMain.lblTime.Caption, Text(u"? second(s)."));
  frmPubMain.CleanBusy = false;
  frmPubMain.sbtCancel.Visible = true;
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(ResultCount(), 0);
}

TEST_F(ScanDriver, WaitsForTheAnimationYielding) {
  Tick({kAddsOne});
  frmPubMain.webGIF.Busy = true;
  int yields = 0;
  UserAtYield user([&yields] {
    if (++yields == 3) frmPubMain.webGIF.Busy = false;
  });
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(yields, 3);
  EXPECT_EQ(ResultCount(), 1);
}

TEST_F(ScanDriver, TheTimeOfTheWaitForTheAnimationCounts) {
  Tick({kAddsOne});
  clock.Set(1'000'000);
  frmPubMain.webGIF.Busy = true;
  UserAtYield user([this] {
    clock.Set(1'007'000);
    frmPubMain.webGIF.Busy = false;
  });
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(frmPubMain.lblTime.Caption, Text(u"7 seconds."));
}

TEST_F(ScanDriver, CancelDuringTheWaitFindsNothing) {
  Tick({kAddsOne});
  frmPubMain.webGIF.Busy = true;
  UserAtYield user([] {
    frmPubMain.sbtCancel.Click();
    frmPubMain.webGIF.Busy = false;
  });
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(frmPubMain.lblProgS.Caption, Text(u"Canceled, no item found."));
}

TEST_F(ScanDriver, ClosingLineFollowsThePageThatIsOpenAtTheEnd) {
  Tick({kAddsNothing, kAddsOne});
  UserAtStatus user([] {
    if (!frmPubMain.lblProgS.Caption.Get().starts_with(u"Scanning")) return;
    frmPubMain.picPrivacy.BorderStyle = 0;
    frmPubMain.picRegistry.BorderStyle = 1;
  });
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(frmPubMain.lblProgS.Caption,
            Text(u"Finished, please click <Repair> or press <F5> to repair the checked issue."));
  EXPECT_EQ(frmPubMain.lblSum.Caption, Text(u"Sum: 1 item  found."));
}

TEST_F(ScanDriver, APageOpenedDuringTheLoopIsReadByRowNumber) {
  OpenListPage(frmPubMain.picSystem, {kAddsNothing, u"no such function", u"no such function either"});
  UserAtStatus user([] {
    if (frmPubMain.lblProgS.Caption.Get().starts_with(u"Scanning")) {
      OpenListPage(frmPubMain.picRegistry, {u"weosh", u"ieafh"});
    }
  });
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(ResultCount(), 1) << "row 2 of the new page; row 3 isn't there";
  EXPECT_EQ(ResultRows()[0].type, u"Auto-fill Form History");
}

TEST_F(ScanDriver, EachScanStartsFromAClearedListAndATickedCheckAll) {
  Tick({kAddsOne});
  frmPubMain.sbtScan.Click();
  frmPubMain.cbxAll.Value = 0;
  EXPECT_FALSE(ResultRows()[0].checked);
  frmPubMain.lsvResult.ColumnHeaders[0].Icon = 2;
  lsvResult_ColumnClick(2);
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(ResultCount(), 1);
  EXPECT_TRUE(ResultRows()[0].checked);
  EXPECT_EQ(frmPubMain.cbxAll.Value, 1);
  EXPECT_EQ(frmPubMain.lsvResult.ColumnHeaders[0].Icon, 0);
  EXPECT_TRUE(frmPubMain.lsvResult.Sorted);
  EXPECT_EQ(frmPubMain.lsvResult.SortKey, 1);
}

TEST_F(ScanDriver, AScanFindsNothingMoreOnceTheServicesAreReleased) {
  Tick({kAddsNothing, u"werh", kAddsOne});
  Seed(platform::Hive::CurrentUser, u"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\RunMRU", u"a",
       u"x");
  UserAtStatus user([] { pubRegistry = {}; });
  frmPubMain.sbtScan.Click();
  EXPECT_EQ(ResultCount(), 1);
}

TEST_F(ScanDriver, ScanFunctionComparesKeysExactly) {
  for (const TextView key : {u"", u"IEAFH", u" ieafh", u"ieafh ", u"ie", u"we", u"Check All", u"advanced"}) {
    ScanFunction(key);
  }
  EXPECT_EQ(ResultCount(), 0);
  ScanFunction(u"ieafh");
  EXPECT_EQ(ResultCount(), 1);
  CancelRequested = true;
  ScanFunction(u"ieafh");
  EXPECT_EQ(ResultCount(), 1);
}

TEST_F(ScanDriver, ScansInTheOrderOfTheTree) {
  Tick({u"weoem", u"weosh", u"weurah", u"ieaph", u"ieafh"});
  frmPubMain.sbtScan.Click();
  std::vector<Text> types;
  for (const RowFields& row : ResultRows()) types.push_back(row.type);
  EXPECT_EQ(types, (std::vector<Text>{u"Auto-fill Form History", u"Auto-fill Password History",
                                      u"User Ran Applications History", u"Open/Save History",
                                      u"Other Explorer MRUs"}));
}

}  // namespace
}  // namespace tavix::mdlPubSelf
