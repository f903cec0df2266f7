#include "advanced/advanced_scan.h"

#include "advanced/advanced_test.h"
#include "advanced/duplicate_test.h"
#include "catalogue/pages.h"
#include "catalogue/scope_tree.h"
#include "forms/main_form.h"
#include "platform/event_queue.h"
#include "platform/machine/host/machine_clock.h"
#include "scan/scan_driver.h"

namespace tavix::mdlPubSelf {
namespace {

// The Advanced page over a machine with drives C and D.
class AdvancedScan : public DuplicateTest {
 protected:
  AdvancedScan() {
    SetDrive(u"C", u"2,System");
    SetDrive(u"D");
    machine.files.AddFolder(u"D:\\");
    AddFile(u"C:\\a.log");
    AddFile(u"C:\\sub\\b.log");
    AddFile(u"C:\\sub\\deep\\c.log");
    AddFile(u"D:\\d.log");
  }
  // Opens the page with one function ticked, or none.
  void Open(TextView function) {
    picAdv_MouseUp(kLeftButton);
    for (int row = 1; row < frmPubMain.lst.ListCount(); ++row) {
      frmPubMain.lst.SetSelected(row, frmPubMain.lst.List(row) == function);
    }
  }
  // Ticks exactly these nodes of the tree, with a user's clicks, and loads the folders above them.
  void Tick(std::initializer_list<TextView> keys) {
    TreeView& tree = frmPubMain.trvRes;
    for (int i = 1; i <= tree.NodeCount(); ++i) tree.NodeAt(i)->Checked = false;
    for (const TextView key : keys) tree.NodeByKey(key)->Checked = true;
  }
  static std::vector<RowFields> Press() {
    sbtScan_Click();
    return ResultRows();
  }
};

TEST_F(AdvancedScan, TheTickedDrivesAreWalkedWithTheTickedFunction) {
  Open(u"Junk Files");
  EXPECT_EQ(Paths(Press()),
            (std::vector<Text>{u"C:\\\\a.log", u"C:\\sub\\b.log", u"C:\\sub\\deep\\c.log", u"D:\\\\d.log"}));
  EXPECT_EQ(frmPubMain.lblProgMI.Caption, u"100%");
  Tick({u"Root", u"D:"});
  EXPECT_EQ(Paths(Press()), (std::vector<Text>{u"D:\\\\d.log"}));
}

TEST_F(AdvancedScan, WithNoFunctionNothingIsLookedAt) {
  Open(u"none");
  frmPubMain.lblProgS.Caption = u"as before";
  frmPubMain.lst.SetSelected(0, true);
  EXPECT_TRUE(Press().empty());
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 0);
  EXPECT_EQ(frmPubMain.lblProgS.Caption, u"Finished, no item found.");
}

TEST_F(AdvancedScan, WithNoFolderTheDuplicatesAreComparedAllTheSame) {
  AddFile(u"C:\\1\\x");
  AddFile(u"C:\\2\\x");
  AddCandidates(u"X", u"x", {u"C:\\1\\x", u"C:\\2\\x"});
  Open(u"Duplicate Files");
  Tick({});
  frmPubMain.lblProgMO.Width = 1001;
  EXPECT_EQ(Press().size(), 2U);
  EXPECT_EQ(ProgressStep, 500) << "half of 1001 goes to the even number";
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 1000);
}

TEST_F(AdvancedScan, OtherFunctionsDoNotCompareDuplicates) {
  AddFile(u"C:\\1\\x");
  AddFile(u"C:\\2\\x");
  AddCandidates(u"X", u"x", {u"C:\\1\\x", u"C:\\2\\x"});
  Open(u"Redundant DLLs");
  EXPECT_TRUE(Press().empty());
}

TEST_F(AdvancedScan, TheStepIsTheFramesWidthByTheTickedFolders) {
  Open(u"Junk Files");
  frmPubMain.lblProgMO.Width = 901;
  Press();
  EXPECT_EQ(ProgressStep, 450);
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 900);
  Tick({u"Root"});
  Press();
  EXPECT_EQ(ProgressStep, 901) << "of no folder the whole width";
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 0);
  Open(u"none");
  frmPubMain.lst.SetSelected(2, true);  // duplicates: two steps more
  Tick({u"D:"});
  Press();
  EXPECT_EQ(ProgressStep, 300);
}

TEST_F(AdvancedScan, AnOpenedFolderIsLookedAtByItselfAndItsSubfoldersByTheirTicks) {
  Open(u"Junk Files");
  trvRes_NodeClick(*frmPubMain.trvRes.NodeByKey(u"C:"));
  Tick({u"C:", u"C:\\sub"});
  EXPECT_EQ(Paths(Press()), (std::vector<Text>{u"C:\\\\a.log", u"C:\\sub\\b.log", u"C:\\sub\\deep\\c.log"}));
  Tick({u"C:"});
  EXPECT_EQ(Paths(Press()), (std::vector<Text>{u"C:\\\\a.log"}));
}

TEST_F(AdvancedScan, TheDataFolderIsNeverWalkedAsANode) {
  AddFile(u"C:\\MORVDataPath\\x.log");
  AddFile(u"D:\\MORVDataPath\\y.log");
  Open(u"Junk Files");
  for (const TextView drive : {u"C:", u"D:"}) trvRes_NodeClick(*frmPubMain.trvRes.NodeByKey(drive));
  Tick({u"C:\\MORVDataPath", u"D:\\MORVDataPath"});
  frmPubMain.lblProgMO.Width = 1000;
  EXPECT_EQ(Paths(Press()), (std::vector<Text>{u"D:\\MORVDataPath\\y.log"}));
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 1000) << "a folder left out moves the bar like any other";
}

TEST_F(AdvancedScan, WhatBeginsLikeTheDataFolderIsLeftOutAsWellInAnyLetterCase) {
  AddFile(u"C:\\MorvDATAPATH2\\x.log");
  AddFile(u"C:\\morvdatapath\\y.log");
  AddFile(u"C:\\MORVData\\z.log");
  Open(u"Junk Files");
  trvRes_NodeClick(*frmPubMain.trvRes.NodeByKey(u"C:"));
  // The data folder keeps the letter case of its creation.
  Tick({u"C:\\MorvDATAPATH2", u"C:\\MORVDataPath", u"C:\\MORVData"});
  EXPECT_EQ(Paths(Press()), (std::vector<Text>{u"C:\\MORVData\\z.log"}));
}

TEST_F(AdvancedScan, ADataFolderOfAnotherSpellingIsLeftOutToo) {
  machine.files.DeleteFolder(u"C:\\MORVDataPath", true);
  AddFile(u"C:\\morvDATApath\\y.log");
  Open(u"Junk Files");
  trvRes_NodeClick(*frmPubMain.trvRes.NodeByKey(u"C:"));
  Tick({u"C:\\morvDATApath"});
  EXPECT_TRUE(Press().empty());
}

TEST_F(AdvancedScan, RecycleFoldersAreLeftOutWhileTheSettingNamesThem) {
  AddFile(u"C:\\RECYCLER\\x.log");
  AddFile(u"D:\\Recycled\\y.log");
  AddFile(u"D:\\Recycled2\\z.log");
  Open(u"Junk Files");
  for (const TextView drive : {u"C:", u"D:"}) trvRes_NodeClick(*frmPubMain.trvRes.NodeByKey(drive));
  Tick({u"C:\\RECYCLER", u"D:\\Recycled", u"D:\\Recycled2"});
  EXPECT_EQ(Paths(Press()), (std::vector<Text>{u"D:\\Recycled2\\z.log"}));
  ExceptFolders = Text(u"Recycle Bin/No Bins");
  EXPECT_EQ(Press().size(), 3U);
}

TEST_F(AdvancedScan, ExceptedFoldersAreLeftOutWithAllBelow) {
  AddFile(u"C:\\Sub2\\d.log");
  Open(u"Junk Files");
  TreeView& tree = frmPubMain.trvRes;
  trvRes_NodeClick(*tree.NodeByKey(u"C:"));
  trvRes_NodeClick(*tree.NodeByKey(u"C:\\sub"));
  Tick({u"C:\\sub", u"C:\\sub\\deep", u"C:\\Sub2"});
  const Text sub = u"C:\\sub\\b.log", deep = u"C:\\sub\\deep\\c.log", other = u"C:\\Sub2\\d.log";
  const struct {
    TextView setting;
    std::vector<Text> found;
  } table[] = {
      {u"", {sub, other, deep}},
      {u"c:\\SUB/text", {other}},
      {u"C:\\sub\\/text|", {other}},
      {u"C:\\sub\\deep/text", {sub, other}},
      {u"C:\\sub", {other}},
      {u"C:\\su?2/d|C:\\none/a/b", {sub, deep}},
      {u"C:\\[s]ub/d", {other}},
      {u"C:\\[sub/d", {sub, other, deep}},
      {u"C:/whole drive", {}},
      {u"/no path|Sub/no drive", {sub, other, deep}},
      {u"Recycle Bin/All Recycle Bins", {sub, other, deep}},
  };
  for (const auto& row : table) {
    ExceptFolders = Text(row.setting);
    EXPECT_EQ(Paths(Press()), row.found) << Narrow(row.setting);
  }
}

TEST_F(AdvancedScan, AnExceptionProtectsAFolderOnlyAsANode) {
  ExceptFolders = Text(u"C:\\sub/text");
  Open(u"Junk Files");
  Tick({u"C:"});
  EXPECT_EQ(Press().size(), 3U) << "the walk of the drive goes into it";
}

TEST_F(AdvancedScan, AFolderThatHasGoneMovesTheBar) {
  Open(u"Junk Files");
  trvRes_NodeClick(*frmPubMain.trvRes.NodeByKey(u"C:"));
  Tick({u"C:\\sub"});
  machine.files.DeleteFolder(u"C:\\sub", true);
  frmPubMain.lblProgMO.Width = 1000;
  EXPECT_TRUE(Press().empty());
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 1000);
}

TEST_F(AdvancedScan, ADriveThatIsNoLongerReadyMovesTheBar) {
  Open(u"Junk Files");
  Tick({u"D:"});
  SetDrive(u"D", u"2,,not ready");
  EXPECT_TRUE(Press().empty());
  EXPECT_EQ(frmPubMain.lblProgMI.Caption, u"100%");
}

struct CancelAt : platform::EventQueue {
  explicit CancelAt(int number) : left(number) { platform::eventQueue = this; }
  ~CancelAt() override { platform::eventQueue = platform::noEventQueue; }
  void Yield() override {
    if (--left == 0) frmPubMain.sbtCancel.Click();
  }
  int left;
};

TEST_F(AdvancedScan, CancelDuringAWalkLeavesAtOnceWithoutTheBarAndTheComparing) {
  AddFile(u"C:\\1\\x");
  AddFile(u"C:\\2\\x");
  AddCandidates(u"X", u"x", {u"C:\\1\\x", u"C:\\2\\x"});
  Open(u"Junk Files");
  frmPubMain.lst.SetSelected(2, true);
  Tick({u"D:"});
  CancelAt cancel(3);  // root and C: aren't ticked, D:\ is one folder
  EXPECT_EQ(Paths(Press()), (std::vector<Text>{u"D:\\\\d.log"}));
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 0);
  EXPECT_EQ(machine.files.FileExists(ScannedFile(u"X", u"x")), true);
  EXPECT_EQ(frmPubMain.lblProgS.Caption,
            u"Canceled, please click <Clean> or press <F5> to clean the checked item.");
}

TEST_F(AdvancedScan, CancelAfterTheLastFolderKeepsDuplicatesFromBeingCompared) {
  AddFile(u"C:\\1\\x");
  AddFile(u"C:\\2\\x");
  AddCandidates(u"X", u"x", {u"C:\\1\\x", u"C:\\2\\x"});
  Open(u"Duplicate Files");
  Tick({u"D:"});
  frmPubMain.lblProgMO.Width = 900;
  CancelAt cancel(4);
  EXPECT_TRUE(Press().empty());
  EXPECT_EQ(frmPubMain.lblProgMI.Width, 300) << "the walk was over";
  EXPECT_EQ(machine.files.FileExists(ScannedFile(u"X", u"x")), true);
}

TEST_F(AdvancedScan, ATreeBuiltAnewDuringTheScanDoesNoHarm) {
  struct Reopen : platform::EventQueue {
    Reopen() { platform::eventQueue = this; }
    ~Reopen() override { platform::eventQueue = platform::noEventQueue; }
    void Yield() override {
      if (--left != 0) return;
      picPrivacy_MouseUp(kLeftButton);
      picAdv_MouseUp(kLeftButton);
    }
    int left = 4;
  };
  Open(u"Junk Files");
  trvRes_NodeClick(*frmPubMain.trvRes.NodeByKey(u"C:"));
  trvRes_NodeClick(*frmPubMain.trvRes.NodeByKey(u"C:\\sub"));
  Reopen reopen;
  Press();
  EXPECT_EQ(frmPubMain.trvRes.NodeCount(), 3);
  EXPECT_TRUE(frmPubMain.sbtScan.Visible);
}

TEST_F(AdvancedScan, TheFunctionOfOldFilesBearsTheDaysOfTheSetting) {
  LastAccessedFile = Text(u"7");
  clock.Set(8 * kDay);
  Open(u"Last Accessed 7 Days Before");
  Tick({u"D:"});
  const auto rows = Press();
  ASSERT_EQ(rows.size(), 1U);
  EXPECT_EQ(rows[0].type, u"Last Accessed 7 Days Before");
  // The page keeps the old caption until it is opened again, but the walk searches for the new one.
  LastAccessedFile = Text(u"6");
  EXPECT_TRUE(Press().empty());
}

}  // namespace
}  // namespace tavix::mdlPubSelf
