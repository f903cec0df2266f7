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

TEST_F(PrivacyTree, HasTwoBranchesWithTheFunctionsBelowThemInTheOrderOfTheCatalogue) {
  const TreeView& tree = frmPubMain.trvPrivacy;
  ASSERT_EQ(tree.NodeCount(), std::ssize(kPrivacyFunctions));
  const Node* branch = nullptr;
  for (int i = 1; i <= tree.NodeCount(); ++i) {
    const CleaningFunction& function = kPrivacyFunctions[static_cast<size_t>(i) - 1];
    const Node* node = frmPubMain.trvPrivacy.NodeAt(i);
    const bool isBranch = function.Key == u"ie" || function.Key == u"we";
    if (isBranch) branch = node;
    EXPECT_EQ(node->Key, function.Key);
    EXPECT_EQ(node->Caption.Get(), function.Caption);
    EXPECT_EQ(node->Parent(), isBranch ? nullptr : branch) << Narrow(function.Key);
  }
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
