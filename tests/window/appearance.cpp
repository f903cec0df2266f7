#include "window/appearance.h"

#include "forms/main_form.h"
#include "platform/application.h"
#include "platform/machine/services/machine_desktop.h"
#include "support/case.h"
#include "support/program_test.h"

namespace tavix {
namespace {

// The pictures of all icons, in the order in which the program switches them off.
std::vector<Text> Pictures() {
  MainForm& f = frmPubMain;
  std::vector<Text> pictures;
  for (PictureBox* icon : {&f.picMini, &f.picClose, &f.picPrivacy, &f.picSystem, &f.picRegistry, &f.picAdv,
                           &f.picOpt, &f.picOne, &f.picHelp, &f.picCommend}) {
    pictures.push_back(icon->Picture.Get());
  }
  return pictures;
}

const std::vector<Text> kAtRest = {u"MINI_STTC", u"CLOSE_STTC",  u"PRIVACY_STTC", u"SYS_STTC",
                                   u"REG_STTC",  u"ADV_STTC",    u"OPT_STTC",     u"ONE_STTC",
                                   u"HELP_STTC", u"COMMEND_STTC"};

class Icons : public ProgramTest {
 protected:
  void SetUp() override { Start(); }
};

TEST_F(Icons, StartAtRest) {
  EXPECT_EQ(Pictures(), kAtRest);
  EXPECT_FALSE(frmPubMain.IconsLit);
}

TEST_F(Icons, EachLightsUnderTheMouse) {
  MainForm& f = frmPubMain;
  const struct {
    PictureBox& icon;
    TextView lit;
  } table[] = {{f.picMini, u"MINI_ACTV"},    {f.picClose, u"CLOSE_ACTV"}, {f.picSystem, u"SYS_ACTV"},
               {f.picRegistry, u"REG_ACTV"}, {f.picAdv, u"ADV_ACTV"},     {f.picOpt, u"OPT_ACTV"},
               {f.picOne, u"ONE_ACTV"},      {f.picHelp, u"HELP_ACTV"},   {f.picCommend, u"COMMEND_ACTV"}};
  for (const auto& row : table) {
    SCOPED_TRACE(Case(row.lit));
    row.icon.MouseMove(0);
    EXPECT_EQ(row.icon.Picture.Get(), row.lit);
    EXPECT_TRUE(f.IconsLit);
  }
  EXPECT_EQ(f.picPrivacy.Picture.Get(), u"PRIVACY_STTC");
}

TEST_F(Icons, ThePageInUseKeepsItsPictureAndStillCountsAsLit) {
  frmPubMain.picPrivacy.MouseMove(0);
  EXPECT_EQ(frmPubMain.picPrivacy.Picture.Get(), u"PRIVACY_STTC");
  EXPECT_TRUE(frmPubMain.IconsLit);
}

TEST_F(Icons, StayLitUntilTheMouseReachesTheBackgroundOrTheTitle) {
  MainForm& f = frmPubMain;
  for (Event<int>* reached : {&f.lblBorder.MouseMove, &f.picTitle.MouseMove}) {
    f.picSystem.MouseMove(0);
    f.picClose.MouseMove(0);
    for (Event<int>* other : {&f.lsvResult.MouseMove, &f.lst.MouseMove, &f.trvPrivacy.MouseMove,
                              &f.lblFrame.MouseMove, &f.picPrivacy.MouseMove}) {
      (*other)(0);
      EXPECT_EQ(f.picSystem.Picture.Get(), u"SYS_ACTV");
      EXPECT_EQ(f.picClose.Picture.Get(), u"CLOSE_ACTV");
    }
    (*reached)(0);
    EXPECT_EQ(Pictures(), kAtRest);
    EXPECT_FALSE(f.IconsLit) << (reached == &f.picTitle.MouseMove ? "by the title" : "by the background");
  }
}

TEST_F(Icons, WithoutALitOneTheBackgroundLeavesPicturesAlone) {
  frmPubMain.picSystem.Picture = Text(u"SYS_ACTV");
  frmPubMain.lblBorder.MouseMove(0);
  EXPECT_EQ(frmPubMain.picSystem.Picture.Get(), u"SYS_ACTV");
}

TEST_F(Icons, APageThatIsOpenedIsAtRestUnderTheMouse) {
  frmPubMain.picSystem.MouseMove(0);
  frmPubMain.picSystem.MouseUp(kLeftButton);
  EXPECT_EQ(frmPubMain.picSystem.Picture.Get(), u"SYS_STTC");
  frmPubMain.picSystem.MouseMove(0);
  EXPECT_EQ(frmPubMain.picSystem.Picture.Get(), u"SYS_STTC");
}

TEST(TitlePicture, IsThatOfTheSize) {
  for (const bool big : {true, false}) {
    frmPubMain.BigInterface = big;
    mdlPubSelf::LoadIconPictures();
    EXPECT_EQ(frmPubMain.picTitle.Picture.Get(), big ? u"TITLE_BIG" : u"TITLE_SM");
  }
  ResetProcess();
}

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

class EmbeddedPage : public ProgramTest {
 protected:
  void SetUp() override {
    platform::applicationFolder = u"C:\\Program Files\\Tavix";
    Start();
  }
};

TEST_F(EmbeddedPage, IsBesideTheProgramAndHiddenAtStart) {
  EXPECT_EQ(frmPubMain.webGIF.Address.Get(), u"C:\\Program Files\\Tavix\\res\\scan.htm");
  EXPECT_FALSE(frmPubMain.webGIF.Visible);
  EXPECT_EQ(frmPubMain.mhtm.Scroll.Get(), u"");
}

TEST_F(EmbeddedPage, HasNoScrollBarsOnceItHasBeenRead) {
  frmPubMain.webGIF.DocumentComplete();
  EXPECT_EQ(frmPubMain.mhtm.Scroll.Get(), u"no");
}

TEST_F(EmbeddedPage, HasNoMenu) {
  bool shown = true;
  frmPubMain.mhtm.oncontextmenu(shown);
  EXPECT_FALSE(shown);
}

}  // namespace
}  // namespace tavix
