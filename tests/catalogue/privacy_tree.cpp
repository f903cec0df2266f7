#include "catalogue/privacy_tree.h"

#include "catalogue/functions.h"
#include "forms/main_form.h"
#include "support/case.h"
#include "support/program_test.h"

namespace tavix::mdlPubSelf {
namespace {

class PrivacyTree : public ProgramTest {
 protected:
  PrivacyTree() { Start(); }
};

TEST_F(PrivacyTree, HasTwoBranchesInTheOrderOfAScan) {
  std::vector<Text> keys;
  TreeView& tree = frmPubMain.trvPrivacy;
  for (int i = 1; i <= tree.NodeCount(); ++i) keys.push_back(tree.NodeAt(i)->Key);
  EXPECT_EQ(keys, (std::vector<Text>{u"ie", u"ietif", u"iec", u"ieh", u"iertu", u"ieafh", u"ieaph", u"ietifd",
                                     u"iecd", u"ieif", u"we", u"werud", u"werh", u"wesh", u"weurah", u"weosh",
                                     u"weoem"}));
  EXPECT_EQ(tree.NodeByKey(u"ie")->Children(), 9);
  EXPECT_EQ(tree.NodeByKey(u"we")->Children(), 6);
  EXPECT_EQ(tree.NodeByKey(u"ie")->Caption, Text(u"Internet Explorer"));
  EXPECT_EQ(tree.NodeByKey(u"weoem")->Caption, Text(u"Other Explorer MRUs"));
}

TEST_F(PrivacyTree, StartsExpandedAndTickedWithoutMarks) {
  TreeView& tree = frmPubMain.trvPrivacy;
  for (int i = 1; i <= tree.NodeCount(); ++i) {
    SCOPED_TRACE(Case(i));
    EXPECT_TRUE(tree.NodeAt(i)->Checked);
    EXPECT_EQ(tree.NodeAt(i)->BackColor, frmPubMain.lsvResult.BackColor.Get());
    EXPECT_EQ(tree.NodeAt(i)->Expanded, tree.NodeAt(i)->Parent() == nullptr);
  }
}

TEST_F(PrivacyTree, AClickShowsTheDescriptionAndHidesTheOptionsLink) {
  frmPubMain.lblOpt.Visible = true;
  frmPubMain.lblOptPrompt.Visible = true;
  frmPubMain.trvPrivacy.NodeClick(*frmPubMain.trvPrivacy.NodeByKey(u"ieh"));
  EXPECT_EQ(frmPubMain.lblProgS.Caption,
            Text(u"Includes the stored pages that you've visited and the time you visited them."));
  EXPECT_FALSE(frmPubMain.lblOpt.Visible);
  EXPECT_FALSE(frmPubMain.lblOptPrompt.Visible);
  frmPubMain.trvPrivacy.NodeClick(*frmPubMain.trvPrivacy.NodeByKey(u"we"));
  EXPECT_TRUE(frmPubMain.lblProgS.Caption.Get().starts_with(u"Includes common privacy for Windows Explorer"));
}

TEST_F(PrivacyTree, EachNodeShowsItsDescriptionAndNoLink) {
  frmPubMain.picSystem.MouseUp(kLeftButton);
  for (const CleaningFunction& function : kPrivacyFunctions) {
    SCOPED_TRACE(Case(function.Caption));
    frmPubMain.lblOpt.Visible = frmPubMain.lblOptPrompt.Visible = true;
    frmPubMain.trvPrivacy.NodeClick(*frmPubMain.trvPrivacy.NodeByKey(function.Key));
    EXPECT_EQ(frmPubMain.lblProgS.Caption, Text(function.Description));
    EXPECT_FALSE(frmPubMain.lblOpt.Visible);
    EXPECT_FALSE(frmPubMain.lblOptPrompt.Visible);
  }
}

}  // namespace
}  // namespace tavix::mdlPubSelf
