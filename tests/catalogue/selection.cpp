#include "catalogue/selection.h"

#include "forms/main_form.h"
#include "scan/result_items.h"
#include "support/case.h"
#include "support/program_test.h"

namespace tavix::mdlPubSelf {
namespace {

class Selection : public ProgramTest {
 protected:
  Selection() { Start(); }
  static Node& At(TextView key) { return *frmPubMain.trvPrivacy.NodeByKey(key); }
  static void Click(TextView key, bool checked) { frmPubMain.trvPrivacy.UserCheck(At(key), checked); }
  static bool Marked(TextView key) { return At(key).BackColor == kButtonFace; }
};

TEST_F(Selection, UntickingAnyChildLeavesTheRootTickedAndMarked) {
  Click(u"werh", false);
  EXPECT_TRUE(At(u"we").Checked);
  EXPECT_TRUE(Marked(u"we"));
  EXPECT_FALSE(Marked(u"ie"));
}

TEST_F(Selection, UntickingAllSixChildrenOneByOneLeavesTheRootTickedAndMarked) {
  for (Node* child = At(u"we").Child(); child != nullptr; child = child->Next()) Click(child->Key, false);
  EXPECT_TRUE(At(u"we").Checked);
  EXPECT_TRUE(Marked(u"we"));
}

TEST_F(Selection, TickingTheLastUntickedChildClearsTheMark) {
  Click(u"werh", false);
  Click(u"wesh", false);
  Click(u"werh", true);
  EXPECT_TRUE(Marked(u"we"));
  Click(u"wesh", true);
  EXPECT_FALSE(Marked(u"we"));
  EXPECT_TRUE(At(u"we").Checked);
}

TEST_F(Selection, TickingAChildOfAnEmptyBranchTicksAndMarksTheBranch) {
  Click(u"we", false);
  Click(u"weosh", true);
  EXPECT_TRUE(At(u"we").Checked);
  EXPECT_TRUE(Marked(u"we"));
}

TEST_F(Selection, ARootHandsItsTickToAllItsChildrenAndClearsTheMark) {
  Click(u"iec", false);
  Click(u"ie", false);
  EXPECT_FALSE(At(u"ie").Checked);
  EXPECT_FALSE(Marked(u"ie"));
  int ticked = 0;
  for (Node* child = At(u"ie").Child(); child != nullptr; child = child->Next())
    ticked += child->Checked ? 1 : 0;
  EXPECT_EQ(ticked, 0);
  Click(u"ie", true);
  for (Node* child = At(u"ie").Child(); child != nullptr; child = child->Next())
    ticked += child->Checked ? 1 : 0;
  EXPECT_EQ(ticked, 9);
  EXPECT_TRUE(At(u"we").Checked);
}

TEST_F(Selection, TickingAMarkedRootTicksAllItsNineChildrenAndClearsTheMark) {
  Click(u"iec", false);
  ASSERT_TRUE(At(u"ie").Checked);
  ASSERT_TRUE(Marked(u"ie"));
  Click(u"ie", true);
  EXPECT_TRUE(At(u"ie").Checked);
  EXPECT_FALSE(Marked(u"ie"));
  int ticked = 0;
  for (Node* child = At(u"ie").Child(); child != nullptr; child = child->Next())
    ticked += child->Checked ? 1 : 0;
  EXPECT_EQ(ticked, 9);
}

class MasterRow : public ProgramTest {
 protected:
  MasterRow() {
    Start();
    frmPubMain.picSystem.MouseUp(kLeftButton);
  }
  static int Ticked() {
    int ticked = 0;
    for (int row = 1; row < List().ListCount(); ++row) ticked += List().Selected(row) ? 1 : 0;
    return ticked;
  }
  static CheckList& List() { return frmPubMain.lst; }
};

TEST_F(MasterRow, AClickUnticksAllRowsAndASecondOneTicksThem) {
  EXPECT_TRUE(List().Selected(0));
  EXPECT_EQ(List().List(0), u"Uncheck All");
  List().SetSelected(0, false);
  EXPECT_EQ(Ticked(), 0);
  EXPECT_EQ(List().List(0), u"Check All");
  EXPECT_FALSE(List().Selected(0));
  List().SetSelected(0, true);
  EXPECT_EQ(Ticked(), 13);
  EXPECT_EQ(List().List(0), u"Uncheck All");
  EXPECT_FALSE(frmPubMain.ListGuard);
}

TEST_F(MasterRow, GivesMixedRowsItsTick) {
  List().SetSelected(2, false);
  List().SetSelected(0, false);
  List().SetSelected(5, true);
  List().SetSelected(0, true);
  EXPECT_EQ(Ticked(), 13);
}

TEST_F(MasterRow, DoesNotFollowItsRows) {
  for (int row = 1; row < List().ListCount(); ++row) List().SetSelected(row, false);
  EXPECT_TRUE(List().Selected(0));
  EXPECT_EQ(List().List(0), u"Uncheck All");
}

TEST_F(MasterRow, DoesNothingWhileTheGuardIsUp) {
  frmPubMain.ListGuard = true;
  List().SetSelected(0, false);
  EXPECT_EQ(Ticked(), 13);
  EXPECT_EQ(List().List(0), u"Uncheck All");
  EXPECT_TRUE(frmPubMain.ListGuard);
}

TEST_F(MasterRow, IsMissingInAnEmptyListAndNothingHappens) {
  List().Clear();
  lst_ItemCheck(0);
  EXPECT_EQ(List().ListCount(), 0);
  EXPECT_FALSE(frmPubMain.ListGuard);
}

TEST_F(Selection, CheckAllGivesItsTickToEveryRow) {
  for (int i = 0; i < 3; ++i) AddResultItem(u"t", u"n", kNoSize, u"l", kNoSizeKey, u"F", i == 1);
  frmPubMain.cbxAll.Value = 0;
  for (const RowFields& row : ResultRows()) EXPECT_FALSE(row.checked) << Case(row.name);
  frmPubMain.cbxAll.Value = 1;
  for (const RowFields& row : ResultRows()) EXPECT_TRUE(row.checked) << Case(row.name);
  frmPubMain.lsvResult.Row(2).SetChecked(false);
  EXPECT_EQ(frmPubMain.cbxAll.Value, 1) << "one row's tick doesn't touch the box";
}

TEST_F(Selection, CheckAllLeavesMoreRowsThanSixteenBitsAlone) {
  for (int i = 0; i < 32767; ++i) AddResultItem(u"t", u"n", kNoSize, u"l", kNoSizeKey, u"F");
  frmPubMain.cbxAll.Value = 0;
  EXPECT_FALSE(frmPubMain.lsvResult.Row(32767).Checked());
  frmPubMain.cbxAll.Value = 1;
  AddResultItem(u"t", u"n", kNoSize, u"l", kNoSizeKey, u"F");
  frmPubMain.cbxAll.Value = 0;
  EXPECT_TRUE(frmPubMain.lsvResult.Row(1).Checked());
  EXPECT_TRUE(frmPubMain.lsvResult.Row(32768).Checked());
}

}  // namespace
}  // namespace tavix::mdlPubSelf
