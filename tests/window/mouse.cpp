#include "window/mouse.h"

#include "support/program_test.h"

namespace tavix {
namespace {

class Mouse : public ProgramTest {
 protected:
  void SetUp() override {
    Start();
    frmPubMain.hWnd = 77;
  }
  std::vector<Event<int>*> Handles() {
    MainForm& f = frmPubMain;
    return {&f.lblBorder.MouseMove, &f.lblFrame.MouseMove,   &f.picTitle.MouseMove,
            &f.lst.MouseMove,       &f.trvPrivacy.MouseMove, &f.trvRes.MouseMove};
  }
};

TEST_F(Mouse, TheLeftButtonDragsTheWindowByEachOfSixPlaces) {
  for (Event<int>* handle : Handles()) {
    machine.desktop.messages.clear();
    machine.desktop.captureReleases = 0;
    (*handle)(kLeftButton);
    EXPECT_EQ(machine.desktop.captureReleases, 1);
    ASSERT_EQ(machine.desktop.messages.size(), 1U);
    EXPECT_EQ(machine.desktop.messages[0], (machine::MachineDesktop::Message{77, 161, 2, 0, false}));
  }
}

TEST_F(Mouse, NoOtherButtonDoes) {
  for (Event<int>* handle : Handles()) {
    (*handle)(0);
    (*handle)(kRightButton);
  }
  EXPECT_EQ(machine.desktop.captureReleases, 0);
  EXPECT_TRUE(machine.desktop.messages.empty());
}

TEST_F(Mouse, NoOtherControlMovesTheWindow) {
  MainForm& f = frmPubMain;
  f.lsvResult.MouseMove(kLeftButton);
  f.lblProgS.MouseMove(kLeftButton);
  for (PictureBox* page : f.PagePictures()) page->MouseMove(kLeftButton);
  EXPECT_TRUE(machine.desktop.messages.empty());
}

TEST_F(Mouse, TitleButtonsActOnTheLeftButtonOnly) {
  std::string calls;
  frmPubMain.Minimize = [&] { calls += "minimise "; };
  frmPubMain.Unload = [&] { calls += "unload "; };
  for (const int button : {kRightButton, kLeftButton}) {
    frmPubMain.picMini.MouseUp(button);
    frmPubMain.picClose.MouseUp(button);
  }
  EXPECT_EQ(calls, "minimise unload ");
}

}  // namespace
}  // namespace tavix
