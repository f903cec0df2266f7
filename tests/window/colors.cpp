#include "window/colors.h"

#include "support/program_test.h"

namespace tavix {
namespace {

class Colors : public ProgramTest {};

TEST_F(Colors, TreesAndTheirNodesTakeThoseOfTheResultList) {
  constexpr Color kBack = 0x102030, kFore = 0xA0B0C0;
  frmPubMain.lsvResult.BackColor = kBack;
  frmPubMain.lsvResult.ForeColor = kFore;
  frmPubMain.trvPrivacy.hWnd = 5;
  frmPubMain.trvRes.hWnd = 6;
  frmPubMain.trvRes.AddNode(nullptr, u"C:", u"C:");
  Start();
  EXPECT_EQ(machine.desktop.treeColors[5], kBack);
  EXPECT_EQ(machine.desktop.treeColors[6], kBack);
  EXPECT_EQ(frmPubMain.trvPrivacy.NodeCount(), 17);
  for (TreeView* tree : {&frmPubMain.trvPrivacy, &frmPubMain.trvRes}) {
    for (int i = 1; i <= tree->NodeCount(); ++i) {
      EXPECT_EQ(tree->NodeAt(i)->BackColor.Get(), kBack);
      EXPECT_EQ(tree->NodeAt(i)->ForeColor.Get(), kFore);
    }
  }
}

}  // namespace
}  // namespace tavix
