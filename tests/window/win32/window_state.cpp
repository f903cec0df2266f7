#include "window_test.h"

namespace tavix::win32 {
namespace {

class WindowState : public WindowTest {
 protected:
  void TearDown() override {
    frmPubMain.Enabled = true;
    frmPubMain.trvRes.Visible = false;
    frmPubMain.trvPrivacy.Visible = true;
    frmPubMain.picPrivacy.MouseMove = frmPubMain.lblBorder.MouseMove = nullptr;
    frmPubMain.picTitle.MouseMove = frmPubMain.lblFrame.MouseMove = nullptr;
    frmPubMain.lblProdLogo.MouseUp = nullptr;
    frmPubMain.lsvResult.Enabled = true;
    frmPubMain.lsvResult.MouseUp = nullptr;
    WindowTest::TearDown();
  }
  static LPARAM PointIn(const tavix::Control& control) {
    return MAKELPARAM((control.Left + 150) / 15, (control.Top + 150) / 15);
  }
};

TEST_F(WindowState, ADisabledFormIsOutOfReachAndGetsItsFocusBack) {
  int keys = 0;
  frmPubMain.KeyDown = [&](int, int) { ++keys; };
  SetFocus(Control(kIdResult));
  frmPubMain.Enabled = false;
  Flush();
  EXPECT_EQ(IsWindowEnabled(mainWindow), FALSE);
  Press(Control(kIdResult), VK_F5);
  EXPECT_EQ(keys, 0);
  frmPubMain.Enabled = true;
  Flush();
  EXPECT_EQ(IsWindowEnabled(mainWindow), TRUE);
  EXPECT_EQ(GetFocus(), Control(kIdResult));
  Press(Control(kIdResult), VK_F5);
  EXPECT_EQ(keys, 1);
}

TEST_F(WindowState, TheFocusFollowsTheProgramAndTheModelFollowsTheUser) {
  frmPubMain.ActiveControl = &frmPubMain.cbxAll;
  Flush();
  EXPECT_EQ(GetFocus(), Control(kIdCheckAll));
  SetFocus(Control(kIdClean));
  EXPECT_EQ(frmPubMain.ActiveControl.Get(), &frmPubMain.sbtClean);
}

TEST_F(WindowState, AControlUnderAnotherIsOutOfReach) {
  frmPubMain.trvRes.Visible = true;
  Flush();
  EXPECT_EQ(IsWindowVisible(Control(kIdScopeTree)), FALSE);
  frmPubMain.trvPrivacy.Visible = false;
  Flush();
  EXPECT_EQ(IsWindowVisible(Control(kIdScopeTree)), TRUE);
  frmPubMain.trvPrivacy.Visible = true;
  Flush();
  EXPECT_EQ(IsWindowVisible(Control(kIdScopeTree)), FALSE);
}

TEST_F(WindowState, MovesOverTheBackgroundReachTheControlThere) {
  std::string moves;
  const auto note = [&](const char* name) { return [&moves, name](int) { moves += name; }; };
  frmPubMain.lblBorder.MouseMove = note("border ");
  frmPubMain.picTitle.MouseMove = note("title ");
  frmPubMain.lblFrame.MouseMove = note("frame ");
  Send(mainWindow, WM_MOUSEMOVE, 0, PointIn(frmPubMain.picTitle));
  Send(mainWindow, WM_MOUSEMOVE, 0, PointIn(frmPubMain.lblFrame));
  Send(mainWindow, WM_MOUSEMOVE, 0, MAKELPARAM(3, frmPubMain.Height / 15 - 5));
  EXPECT_EQ(moves, "title frame border ");
  // WM_MOUSEMOVE also arrives while the mouse rests. It must not raise a second event.
  Send(mainWindow, WM_MOUSEMOVE, 0, MAKELPARAM(3, frmPubMain.Height / 15 - 5));
  EXPECT_EQ(moves, "title frame border ");
}

TEST_F(WindowState, ADisabledControlIsNoBackground) {
  int moves = 0;
  frmPubMain.lblBorder.MouseMove = [&](int) { ++moves; };
  frmPubMain.lsvResult.Enabled = false;
  Flush();
  Send(mainWindow, WM_MOUSEMOVE, MK_LBUTTON, PointIn(frmPubMain.lsvResult));
  EXPECT_EQ(moves, 0);
}

TEST_F(WindowState, LabelsAreNoBackground) {
  int moves = 0;
  frmPubMain.lblBorder.MouseMove = frmPubMain.lblFrame.MouseMove =
      frmPubMain.picTitle.MouseMove = [&](int) { ++moves; };
  MainForm& form = frmPubMain;
  const tavix::Control* const labels[] = {&form.lblProgS, &form.lblTimeP,    &form.lblTime,    &form.lblSum,
                                          &form.lblVer,   &form.lblProdLogo, &form.lblCompLogo};
  for (const tavix::Control* label : labels) {
    ASSERT_GT(label->Width, 150);
    Send(mainWindow, WM_MOUSEMOVE, MK_LBUTTON, PointIn(*label));
  }
  EXPECT_EQ(moves, 0);
}

TEST_F(WindowState, BothNamesInTheTitleAreClicked) {
  std::string led;
  const auto note = [&](const char* name) {
    return [&led, name](int button) { led += name + std::to_string(button) + " "; };
  };
  frmPubMain.lblProdLogo.MouseUp = note("product");
  frmPubMain.lblCompLogo.MouseUp = note("maker");
  Click(Control(kIdMakerLink), 5, 5);
  window->HandleWaiting();
  EXPECT_EQ(led, "maker1 ");
  Press(Control(kIdProductLink), VK_RETURN);
  EXPECT_EQ(led, "maker1 product1 ");
  Press(Control(kIdMakerLink), VK_SPACE);
  EXPECT_EQ(led, "maker1 product1 maker1 ");
  Send(Control(kIdProductLink), WM_RBUTTONUP, 0, MAKELPARAM(5, 5));
  EXPECT_EQ(led, "maker1 product1 maker1 ");
  frmPubMain.lblCompLogo.MouseUp = nullptr;
}

TEST_F(WindowState, APictureThatIsMissingLeavesTheOneBefore) {
  PictureBox& picture = frmPubMain.picPrivacy;
  const auto pixels = [this] {
    const HWND control = Control(kIdPrivacy);
    RedrawWindow(control, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
    const HDC context = GetDC(control);
    std::vector<COLORREF> seen;
    for (int i = 4; i < 60; ++i) seen.push_back(GetPixel(context, i, i));
    ReleaseDC(control, context);
    return seen;
  };
  picture.Picture = u"PRIVACY_STTC";
  Flush();
  const auto before = pixels();
  picture.Picture = u"NO_SUCH_PICTURE";
  Flush();
  EXPECT_EQ(pixels(), before);
  picture.Picture = u"PRIVACY_ACTV";
  Flush();
  EXPECT_NE(pixels(), before);
  picture.Picture = u"PRIVACY_STTC";
}

TEST_F(WindowState, AMenuIsAskedForByMouseAndKeyButNotByTheHeader) {
  std::vector<int> buttons;
  frmPubMain.lsvResult.MouseUp = [&](int button) { buttons.push_back(button); };
  const HWND list = Control(kIdResult);
  const auto ask = [&](HWND of, LPARAM where) {
    Send(list, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(of), where);
  };
  ask(list, MAKELPARAM(500, 300));
  EXPECT_EQ(buttons, std::vector<int>{kRightButton});
  ask(list, -1);
  EXPECT_EQ(buttons, (std::vector<int>{kRightButton, kRightButton}));
  ask(reinterpret_cast<HWND>(Send(list, LVM_GETHEADER)), MAKELPARAM(500, 300));
  EXPECT_EQ(buttons.size(), 2U);
}

TEST_F(WindowState, APictureIsNamedByItsToolTip) {
  EXPECT_EQ(TextOf(kIdSystem), L"System (S)");
  frmPubMain.picSystem.ToolTipText = Text(u"Systeme (S)");
  Flush();
  EXPECT_EQ(TextOf(kIdSystem), L"Systeme (S)");
  frmPubMain.picSystem.ToolTipText = Text(u"System (S)");
}

TEST_F(WindowState, ThePictureOfTheCurrentPageIsNamedSo) {
  EXPECT_EQ(TextOf(kIdPrivacy), L"Privacy (P), current page");
  frmPubMain.picPrivacy.BorderStyle = 0;
  frmPubMain.picSystem.BorderStyle = 1;
  Flush();
  EXPECT_EQ(TextOf(kIdPrivacy), L"Privacy (P)");
  EXPECT_EQ(TextOf(kIdSystem), L"System (S), current page");
  frmPubMain.picPrivacy.BorderStyle = 1;
  frmPubMain.picSystem.BorderStyle = 0;
}

TEST_F(WindowState, AWindowThatTheUserHasMovedStaysThere) {
  SetWindowPos(mainWindow, nullptr, 10, 20, 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
  frmPubMain.ActiveControl = &frmPubMain.cbxAll;
  Flush();
  RECT place;
  GetWindowRect(mainWindow, &place);
  EXPECT_EQ(place.left, 10);
  EXPECT_EQ(place.top, 20);
}

}  // namespace
}  // namespace tavix::win32
