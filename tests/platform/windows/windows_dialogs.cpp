#include "platform/windows/windows_dialogs.h"

#include <gtest/gtest.h>

#include "platform/windows/test_window.h"

namespace tavix::windows {
namespace {

// The owner of the message box shown last. The box is closed at once.
HWND owner = nullptr;
bool shown = false;

void CALLBACK LookAndClose(HWND, UINT, UINT_PTR timer, DWORD) {
  const HWND box = FindWindowW(L"#32770", L"Tavix");
  if (box == nullptr) return;
  KillTimer(nullptr, timer);
  shown = true;
  owner = GetWindow(box, GW_OWNER);
  PostMessageW(box, WM_COMMAND, IDOK, 0);
}

class DialogsOfWindows : public testing::Test {
 protected:
  void SetUp() override {
    if (!MakeWindow(u"window")) GTEST_SKIP() << "no display";
    owner = nullptr;
    shown = false;
  }
  void ShowBox() {
    SetTimer(nullptr, 0, 20, LookAndClose);
    EXPECT_EQ(dialogs.MsgBox(u"text", platform::kInformation), platform::kOk);
    EXPECT_TRUE(shown);
  }
  WindowsDialogs dialogs;
};

TEST_F(DialogsOfWindows, AMessageBoxBelongsToTheWindowAlsoWhileNoneOfOursIsActive) {
  const OwnedWindow window = MakeWindow(u"not active");
  ShowWindow(window.Get(), SW_SHOWNOACTIVATE);
  ASSERT_EQ(GetActiveWindow(), nullptr);
  ShowBox();
  EXPECT_EQ(owner, window.Get());
}

TEST_F(DialogsOfWindows, AMessageBoxBelongsToTheActiveWindow) {
  const OwnedWindow other = MakeWindow(u"other"), active = MakeWindow(u"active");
  ShowWindow(other.Get(), SW_SHOWNOACTIVATE);
  ShowWindow(active.Get(), SW_SHOW);
  SetActiveWindow(active.Get());
  ASSERT_EQ(GetActiveWindow(), active.Get());
  ShowBox();
  EXPECT_EQ(owner, active.Get());
}

TEST_F(DialogsOfWindows, BeforeAnyWindowIsShownAMessageBoxStandsAlone) {
  const OwnedWindow hidden = MakeWindow(u"hidden");
  ShowBox();
  EXPECT_NE(owner, hidden.Get());
}

}  // namespace
}  // namespace tavix::windows
