// The window while a job runs: the bar, what is painted without input being served, and where the focus is.

#include <atomic>
#include <functional>
#include <thread>
#include <vector>

#include "platform/event_queue.h"
#include "window_test.h"

namespace tavix::win32 {
namespace {

class Jobs : public WindowTest {
 protected:
  void TearDown() override {
    MainForm& form = frmPubMain;
    form.sbtScan.Visible = form.sbtScan.Enabled = form.lsvResult.Enabled = true;
    form.sbtCancel.Visible = false;
    form.picSystem.MouseUp = nullptr;
    form.lblProgMI.Visible = false;
    form.lblProgMI.Caption = Text();
    form.lblProgMI.Width = 0;
    WindowTest::TearDown();
  }
  // The pixels that a control shows, row by row.
  std::vector<COLORREF> Pixels(int id) const {
    RECT area;
    GetClientRect(Control(id), &area);
    const HDC context = GetDC(Control(id));
    std::vector<COLORREF> pixels;
    for (int y = 0; y < area.bottom; ++y)
      for (int x = 0; x < area.right; ++x) pixels.push_back(GetPixel(context, x, y));
    ReleaseDC(Control(id), context);
    return pixels;
  }
  int BarWidth() const {
    RECT area;
    GetClientRect(Control(kIdProgress), &area);
    return area.right;
  }
  // The columns of the bar that hold pixels darker than fill and background, first and last; none as {-1,
  // -1}. Outlines don't count.
  std::pair<int, int> Words() const {
    RECT area;
    GetClientRect(Control(kIdProgress), &area);
    const auto pixels = Pixels(kIdProgress);
    std::pair<int, int> words{-1, -1};
    for (int x = 1; x < area.right - 1; ++x) {
      for (int y = 1; y < area.bottom - 1; ++y) {
        if (GetRValue(pixels[static_cast<size_t>(y * area.right + x)]) >= 100) continue;
        if (words.first < 0) words.first = x;
        words.second = x;
      }
    }
    return words;
  }
  // Shows a fill of this part of the bar.
  static void Fill(double part, TextView caption) {
    MainForm& form = frmPubMain;
    form.lblProgMI.Visible = true;
    form.lblProgMI.Width = static_cast<int>(form.lblProgMO.Width * part);
    form.lblProgMI.Caption = Text(caption);
    Flush();
  }
  // Runs a job that serves no input until `done`.
  static void Work(const std::function<bool()>& done) {
    while (!done()) frmPubMain.KeepPainted();
  }
};

//--- The bar

TEST_F(Jobs, AnEmptyBarSaysNothing) {
  Fill(0, u"100%");
  EXPECT_EQ(Words(), std::pair(-1, -1));
  EXPECT_EQ(TextOf(kIdProgress), L"");
}

TEST_F(Jobs, ThePercentageStandsInTheFill) {
  Fill(0.3, u"30%");
  const auto [first, last] = Words();
  const int filled = static_cast<int>(BarWidth() * 0.3);
  EXPECT_GT(first, 0);
  EXPECT_LT(last, filled);
  EXPECT_NEAR((first + last) / 2.0, filled / 2.0, 3);
  EXPECT_EQ(TextOf(kIdProgress), L"30%");
}

TEST_F(Jobs, AFillTooNarrowForThePercentageHasNone) {
  Fill(0.02, u"2%");
  EXPECT_EQ(Words(), std::pair(-1, -1));
  EXPECT_EQ(TextOf(kIdProgress), L"2%");
}

TEST_F(Jobs, AFillBeyondTheBarIsCutAtItsEnd) {
  Fill(1.04, u"100%");
  const auto [first, last] = Words();
  EXPECT_NEAR((first + last) / 2.0, BarWidth() / 2.0, 3);
}

//--- A job that serves no input

TEST_F(Jobs, WhatChangesIsPaintedWithoutAYield) {
  const auto status = Pixels(kIdStatus), bar = Pixels(kIdProgress), clean = Pixels(kIdClean);
  frmPubMain.lblProgS.Caption = u"Cleaning";
  frmPubMain.lblProgMI.Visible = true;
  frmPubMain.lblProgMI.Width = frmPubMain.lblProgMO.Width / 2;
  frmPubMain.sbtClean.Enabled = false;
  Work(
      [&] { return Pixels(kIdStatus) != status && Pixels(kIdProgress) != bar && Pixels(kIdClean) != clean; });
  frmPubMain.lblProgS.Caption = Text();
  frmPubMain.sbtClean.Enabled = true;
  Flush();
}

TEST_F(Jobs, KeysClicksAndTheWishToCloseWait) {
  std::vector<int> keys;
  int clicks = 0;
  frmPubMain.KeyDown = [&](int key, int) { keys.push_back(key); };
  frmPubMain.picSystem.MouseUp = [&](int) { ++clicks; };
  PostMessageW(Control(kIdResult), WM_KEYDOWN, VK_F3, 1);
  PostMessageW(Control(kIdSystem), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(9, 9));
  PostMessageW(Control(kIdSystem), WM_LBUTTONUP, 0, MAKELPARAM(9, 9));
  for (const char16_t digit : {u'1', u'2', u'3'}) {
    frmPubMain.lblSum.Caption = Text(1, digit);
    Work([&] { return TextOf(kIdSum) == std::wstring(1, static_cast<wchar_t>(digit)); });
  }
  EXPECT_TRUE(keys.empty());
  EXPECT_EQ(clicks, 0);
  window->HandleWaiting();
  EXPECT_EQ(keys, std::vector<int>{VK_F3});
  EXPECT_EQ(clicks, 1);
}

TEST_F(Jobs, AnotherProgramGetsItsAnswersAndPressesNothing) {
  int clicks = 0;
  frmPubMain.picSystem.MouseUp = [&](int) { ++clicks; };
  std::atomic<bool> answered = false;
  std::thread other([&] {
    wchar_t text[64]{};
    SendMessageW(Control(kIdScan), WM_GETTEXT, 64, reinterpret_cast<LPARAM>(text));
    SendMessageW(Control(kIdSystem), BM_CLICK, 0, 0);
    SendMessageW(mainWindow, WM_CLOSE, 0, 0);
    answered = true;
  });
  Work([&] { return answered.load(); });
  other.join();
  EXPECT_EQ(clicks, 0);
  EXPECT_NE(IsWindow(mainWindow), FALSE);
  EXPECT_EQ(window->Run(), 0) << "the wish to close was kept";
  EXPECT_EQ(clicks, 1) << "and so was the click";
}

//--- The focus during a scan

// What a scan does to the buttons and the list, until it is cancelled or `done`.
void Scan(const std::function<bool()>& done) {
  MainForm& form = frmPubMain;
  mdlPubSelf::CancelRequested = false;
  form.sbtScan.Visible = false;
  form.sbtCancel.Visible = true;
  form.lsvResult.Enabled = false;
  form.Refresh();
  while (!mdlPubSelf::CancelRequested && !done()) platform::Yield();
  form.sbtScan.Visible = true;
  form.sbtCancel.Visible = false;
  form.lsvResult.Enabled = true;
  form.Refresh();
}

TEST_F(Jobs, SpacePressesCancelAfterScanWasPressedByMouse) {
  int scans = 0;
  frmPubMain.sbtScan.Click = [&] {
    ++scans;
    HWND focus = nullptr;
    Scan([&] {
      if (focus == nullptr && GetFocus() == Control(kIdCancel)) {
        focus = GetFocus();
        PostMessageW(focus, WM_KEYDOWN, VK_SPACE, 1);
        PostMessageW(focus, WM_KEYUP, VK_SPACE, 1);
      }
      return false;
    });
  };
  frmPubMain.sbtCancel.Click = [] { mdlPubSelf::CancelRequested = true; };
  Click(Control(kIdScan), 20, 20);
  window->HandleWaiting();
  EXPECT_EQ(scans, 1);
  EXPECT_TRUE(mdlPubSelf::CancelRequested);
  EXPECT_EQ(GetFocus(), Control(kIdScan));
}

TEST_F(Jobs, TheListGetsTheFocusBackAfterTheScan) {
  SetFocus(Control(kIdResult));
  Scan([&] { return GetFocus() == Control(kIdCancel); });
  EXPECT_EQ(GetFocus(), Control(kIdResult));
}

TEST_F(Jobs, AControlThatTheUserChoosesDuringAScanKeepsTheFocus) {
  SetFocus(Control(kIdResult));
  bool chosen = false;
  Scan([&] {
    if (GetFocus() == Control(kIdCancel)) {
      SetFocus(Control(kIdPrivacyTree));
      chosen = true;
      return false;
    }
    return chosen;
  });
  EXPECT_EQ(GetFocus(), Control(kIdPrivacyTree));
}

TEST_F(Jobs, CancelChosenByTheUserHandsTheFocusToScan) {
  SetFocus(Control(kIdPrivacyTree));
  Scan([&] {
    SetFocus(Control(kIdCancel));
    return true;
  });
  EXPECT_EQ(GetFocus(), Control(kIdScan));
}

TEST_F(Jobs, EnterHeldDownOnScanDoesNotPressCancel) {
  constexpr LPARAM kHeld = 1 | 1 << 30;
  int cancels = 0, looks = 0;
  frmPubMain.sbtCancel.Click = [&] { ++cancels; };
  frmPubMain.sbtScan.Click = [&] {
    Scan([&] {
      if (GetFocus() == Control(kIdCancel)) PostMessageW(Control(kIdCancel), WM_KEYDOWN, VK_RETURN, kHeld);
      return ++looks == 3;
    });
  };
  SetFocus(Control(kIdScan));
  Press(Control(kIdScan), VK_RETURN);
  EXPECT_EQ(looks, 3);
  EXPECT_EQ(cancels, 0);
}

}  // namespace
}  // namespace tavix::win32
