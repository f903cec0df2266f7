#include "window/win32/main_window.h"

#include <utility>
#include <vector>

#include "platform/event_queue.h"
#include "window_test.h"

namespace tavix::win32 {
namespace {

class MainWindowTest : public WindowTest {};

TEST_F(MainWindowTest, ShowsACaptionFromTheNextFlushOn) {
  frmPubMain.lblSum.Caption = u"Sum: 1";
  EXPECT_NE(TextOf(kIdSum), L"Sum: 1");
  frmPubMain.lblSum.Caption = u"Sum: 2";
  Flush();
  EXPECT_EQ(TextOf(kIdSum), L"Sum: 2");
}

TEST_F(MainWindowTest, AYieldShowsWhatHasChanged) {
  Sleep(50);
  frmPubMain.lblSum.Caption = u"Sum: 3";
  platform::Yield();
  EXPECT_EQ(TextOf(kIdSum), L"Sum: 3");
}

TEST_F(MainWindowTest, IsWhereTheLayoutPutsIt) {
  RECT area;
  GetWindowRect(mainWindow, &area);
  EXPECT_NEAR(static_cast<int>(area.left), frmPubMain.Left / 15, 1);
  EXPECT_NEAR(static_cast<int>(area.top), frmPubMain.Top / 15, 1);
  EXPECT_NEAR(static_cast<int>(area.right - area.left), frmPubMain.Width / 15, 1);
  EXPECT_NEAR(static_cast<int>(area.bottom - area.top), frmPubMain.Height / 15, 1);
}

TEST_F(MainWindowTest, AMinimizedWindowHasItsNewSizeOnceItIsRestored) {
  const auto size = [this] {
    RECT area;
    GetWindowRect(mainWindow, &area);
    return std::pair(area.right - area.left, area.bottom - area.top);
  };
  const auto [width, height] = size();
  ShowWindow(mainWindow, SW_MINIMIZE);
  const RECT suggested{10, 10, 20, 20};
  // A quarter more, for which the screen of the tests has room.
  Send(mainWindow, WM_DPICHANGED, MAKEWPARAM(120, 120), reinterpret_cast<LPARAM>(&suggested));
  EXPECT_NE(IsIconic(mainWindow), FALSE);
  ShowWindow(mainWindow, SW_RESTORE);
  EXPECT_NEAR(size().first, width * 1.25, 2);
  EXPECT_NEAR(size().second, height * 1.25, 2);
}

TEST_F(MainWindowTest, EveryControlThatCanBeOperatedHasANameAndATabStop) {
  for (int id = kIdTitleHelp; id <= kIdMakerLink; ++id) {
    if (id == kIdBusyPage) continue;
    const HWND control = Control(id);
    ASSERT_NE(control, nullptr) << id;
    const bool isStatic =
        id == kIdVersion || id == kIdStatus || id == kIdOptionPrompt || (id >= kIdProgress && id <= kIdSum);
    if (isStatic) continue;
    EXPECT_NE(TextOf(id), L"") << id;
    EXPECT_NE(GetWindowLongPtrW(control, GWL_STYLE) & WS_TABSTOP, 0) << id;
  }
}

TEST_F(MainWindowTest, KeysGoToTheFormWhicheverControlHasTheFocus) {
  std::vector<int> keys;
  frmPubMain.KeyDown = [&](int key, int) { keys.push_back(key); };
  for (const int id : {kIdResult, kIdPrivacyTree, kIdScan, kIdCheckAll}) {
    SetFocus(Control(id));
    Press(Control(id), VK_F3);
    Press(Control(id), 'P');
  }
  EXPECT_EQ(keys, (std::vector<int>{VK_F3, 'P', VK_F3, 'P', VK_F3, 'P', VK_F3, 'P'}));
}

TEST_F(MainWindowTest, ALetterDoesNotSearchTheList) {
  frmPubMain.lsvResult.Add(u"a");
  frmPubMain.lsvResult.Add(u"s");
  frmPubMain.lsvResult.SelectRow(1);
  Flush();
  SetFocus(Control(kIdResult));
  Press(Control(kIdResult), 'S');
  EXPECT_EQ(frmPubMain.lsvResult.SelectedRow(), 1);
}

TEST_F(MainWindowTest, TabMovesThroughTheControls) {
  SetFocus(Control(kIdScan));
  Press(Control(kIdScan), VK_TAB);
  EXPECT_EQ(GetFocus(), Control(kIdClean));
}

TEST_F(MainWindowTest, EnterAndSpacePressTheButtonInFocus) {
  int presses = 0;
  frmPubMain.sbtScan.Click = [&] { ++presses; };
  SetFocus(Control(kIdScan));
  Press(Control(kIdScan), VK_RETURN);
  EXPECT_EQ(presses, 1);
  Press(Control(kIdScan), VK_SPACE);
  EXPECT_EQ(presses, 2);
}

TEST_F(MainWindowTest, TheOutlineOfTheLinkKeepsAwayFromItsWords) {
  frmPubMain.lblOpt.Visible = true;
  FitTexts([](TextView text) { return static_cast<int>(text.size()) * 150; });
  Flush();
  const HWND link = Control(kIdOptionLink);
  SetFocus(link);
  RedrawWindow(link, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  RECT area;
  GetClientRect(link, &area);
  const HDC context = GetDC(link);
  const COLORREF panel = GetPixel(context, 1, 1);
  EXPECT_NE(GetPixel(context, 0, area.bottom / 2), panel) << "the outline";
  int words = 0;
  for (int x = 1; x < area.right - 1; ++x) {
    for (int y = 1; y < area.bottom - 1; ++y) {
      if (GetPixel(context, x, y) == panel) continue;
      ++words;
      EXPECT_GE(x, 3);
    }
  }
  EXPECT_GT(words, 50);
  ReleaseDC(link, context);
  frmPubMain.lblOpt.Visible = false;
}

TEST_F(MainWindowTest, APictureRaisesTheButtonReleased) {
  std::vector<int> buttons;
  frmPubMain.picPrivacy.MouseUp = [&](int button) { buttons.push_back(button); };
  Click(Control(kIdPrivacy), 10, 10);
  window->HandleWaiting();
  Send(Control(kIdPrivacy), WM_RBUTTONUP, 0, MAKELPARAM(10, 10));
  EXPECT_EQ(buttons, (std::vector<int>{kLeftButton, kRightButton}));
}

TEST_F(MainWindowTest, TheCheckBoxAndItsModelFollowEachOther) {
  int clicks = 0;
  frmPubMain.cbxAll.Value = 1;
  Flush();
  frmPubMain.cbxAll.Click = [&] { ++clicks; };
  Send(Control(kIdCheckAll), BM_CLICK);
  EXPECT_EQ(frmPubMain.cbxAll.GetValue(), 0);
  EXPECT_EQ(clicks, 1);
  Flush();
  EXPECT_EQ(Send(Control(kIdCheckAll), BM_GETCHECK), BST_UNCHECKED);
  frmPubMain.cbxAll.Value = 1;
  Flush();
  EXPECT_EQ(Send(Control(kIdCheckAll), BM_GETCHECK), BST_CHECKED);
}

TEST_F(MainWindowTest, ADisabledControlGivesTheFocusAwayAndGetsItBack) {
  SetFocus(Control(kIdResult));
  frmPubMain.lsvResult.Enabled = false;
  Flush();
  EXPECT_EQ(GetFocus(), mainWindow);
  frmPubMain.lsvResult.Enabled = true;
  Flush();
  EXPECT_EQ(GetFocus(), Control(kIdResult));
}

TEST_F(MainWindowTest, ARowOfTheFunctionListIsClickedOnce) {
  CheckList& model = frmPubMain.lst;
  model.AddItem(u"Uncheck All");
  model.AddItem(u"Temporary Files");
  model.Visible = true;
  Flush();
  std::vector<int> clicked, checked;
  model.Click = [&] { clicked.push_back(model.ListIndex); };
  model.ItemCheck = [&](int row) { checked.push_back(row); };
  const HWND list = Control(kIdFunctions);
  RECT area{};
  area.left = LVIR_BOUNDS;
  Send(list, LVM_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&area));
  const int y = (area.top + area.bottom) / 2;
  Click(list, area.left + 50, y);
  window->HandleWaiting();
  EXPECT_EQ(clicked, std::vector<int>{1});
  Click(list, area.left + 50, y);
  window->HandleWaiting();
  EXPECT_EQ(clicked, (std::vector<int>{1, 1}));
  EXPECT_TRUE(checked.empty());
  Click(list, area.left + 8, y);
  EXPECT_EQ(checked, std::vector<int>{1});
  EXPECT_TRUE(model.Selected(1));
  EXPECT_EQ(clicked, (std::vector<int>{1, 1, 1})) << "a click on the box also clicks the row";
  area = {};
  area.left = LVIR_BOUNDS;
  Send(list, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&area));
  model.ItemCheck = [&](int row) { checked.push_back(row + static_cast<int>(clicked.size()) * 10); };
  Click(list, area.left + 8, (area.top + area.bottom) / 2);
  EXPECT_EQ(checked.back(), 30) << "the tick turns first";
  EXPECT_EQ(clicked, (std::vector<int>{1, 1, 1, 0}));
  Flush();
  EXPECT_EQ(Send(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), 0);
  model.Visible = false;
}

TEST_F(MainWindowTest, TheTimerTicksWhileItHasAnInterval) {
  int ticks = 0;
  frmPubMain.timLoader.Tick = [&] { ++ticks; };
  frmPubMain.timLoader.Interval = 20;
  Flush();
  // A busy machine may take long.
  for (const ULONGLONG start = GetTickCount64(); ticks < 2 && GetTickCount64() - start < 600'000;) {
    Sleep(10);
    platform::Yield();
  }
  EXPECT_GE(ticks, 2);
  frmPubMain.timLoader.Interval = 0;
  Flush();
  const int before = ticks;
  Sleep(60);
  platform::Yield();
  EXPECT_EQ(ticks, before);
}

// A job that adds rows and yields until it is asked to end, as a walk does.
struct Job {
  int rounds = 0;
  bool ended = false;
  void Run() {
    while (!mdlPubSelf::CancelRequested && rounds < 1000000) {
      frmPubMain.lsvResult.Add(u"row");
      frmPubMain.lblProgS.Caption = ToText(++rounds);
      platform::Yield();
    }
    frmPubMain.lblProgS.Caption = u"ended";
    frmPubMain.lsvResult.Enabled = true;
    frmPubMain.Refresh();
    platform::Yield();
    ended = true;
  }
};

TEST_F(MainWindowTest, ClosingDuringAJobEndsBoth) {
  Job job;
  frmPubMain.sbtScan.Click = [&] { job.Run(); };
  SetTimer(mainWindow, 99, 50, [](HWND owner, UINT, UINT_PTR id, DWORD) {
    KillTimer(owner, id);
    PostMessageW(owner, WM_CLOSE, 0, 0);
    PostMessageW(owner, WM_CLOSE, 0, 0);
  });
  PostMessageW(Control(kIdScan), BM_CLICK, 0, 0);
  EXPECT_EQ(window->Run(), 0);
  EXPECT_TRUE(job.ended);
  EXPECT_GT(job.rounds, 1);
  EXPECT_LT(job.rounds, 1000000);
  EXPECT_EQ(IsWindow(mainWindow), FALSE);
  EXPECT_EQ(frmPubMain.lsvResult.peer, nullptr);
  EXPECT_EQ(frmPubMain.trvPrivacy.treePeer, nullptr);
  EXPECT_EQ(frmPubMain.peer, nullptr);
}

TEST_F(MainWindowTest, AHandlerMayCloseTheWindowAndGoOn) {
  bool back = false;
  frmPubMain.sbtScan.Click = [&] {
    frmPubMain.Unload();
    frmPubMain.lblSum.Caption = u"gone";
    back = true;
  };
  PostMessageW(Control(kIdScan), BM_CLICK, 0, 0);
  EXPECT_EQ(window->Run(), 0);
  EXPECT_TRUE(back);
}

TEST_F(MainWindowTest, CancelCanBePressedDuringAJob) {
  Job job;
  frmPubMain.sbtScan.Click = [&] { job.Run(); };
  frmPubMain.KeyDown = [](int key, int) {
    if (key == VK_ESCAPE) mdlPubSelf::CancelRequested = true;
  };
  SetTimer(mainWindow, 99, 50, [](HWND owner, UINT, UINT_PTR id, DWORD) {
    KillTimer(owner, id);
    PostMessageW(owner, WM_KEYDOWN, VK_ESCAPE, 1);
  });
  Send(Control(kIdScan), BM_CLICK);
  EXPECT_TRUE(job.ended);
  EXPECT_LT(job.rounds, 1000000);
  EXPECT_NE(IsWindow(mainWindow), FALSE);
  EXPECT_EQ(TextOf(kIdStatus), L"ended");
}

}  // namespace
}  // namespace tavix::win32
