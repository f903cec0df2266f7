#include "platform/windows/windows_desktop.h"

#include <gtest/gtest.h>

#include "platform/windows/test_window.h"

#include <commctrl.h>

namespace tavix::windows {
namespace {

platform::WindowHandle Number(const OwnedWindow& window) {
  return reinterpret_cast<platform::WindowHandle>(window.Get());
}

class DesktopOfWindows : public testing::Test {
 protected:
  WindowsDesktop desktop;
};

TEST_F(DesktopOfWindows, FindsAWindowByItsExactTitle) {
  const OwnedWindow other = MakeWindow(u"TAVIX TEST HELP"), longer = MakeWindow(u"Tavix Test Help 2");
  if (!other) GTEST_SKIP() << "no display";
  EXPECT_EQ(desktop.FindWindowByTitle(u"Tavix Test Help"), 0);
  const OwnedWindow wanted = MakeWindow(u"Tavix Test Help");
  EXPECT_EQ(desktop.FindWindowByTitle(u"Tavix Test Help"), Number(wanted));
  EXPECT_EQ(desktop.FindWindowByTitle(u"TAVIX TEST HELP"), Number(other));
}

TEST_F(DesktopOfWindows, NoTitleFindsNothing) { EXPECT_EQ(desktop.FindWindowByTitle(u""), 0); }

TEST_F(DesktopOfWindows, SendsAndPostsMessages) {
  const OwnedWindow window = MakeWindow(u"before");
  if (!window) GTEST_SKIP() << "no display";
  desktop.SendWindowMessage(Number(window), WM_SETTEXT, 0, reinterpret_cast<intptr_t>(L"after"));
  wchar_t title[16];
  EXPECT_EQ(GetWindowTextW(window.Get(), title, 16), 5);
  desktop.PostWindowMessage(Number(window), WM_APP + 1, 2, 3);
  MSG message;
  ASSERT_TRUE(PeekMessageW(&message, window.Get(), WM_APP + 1, WM_APP + 1, PM_REMOVE));
  EXPECT_EQ(message.wParam, 2U);
  EXPECT_EQ(message.lParam, 3);
}

TEST_F(DesktopOfWindows, AMessageToNoWindowGoesNowhere) {
  desktop.PostWindowMessage(0, WM_APP + 1, 0, 0);
  desktop.SendWindowMessage(0, WM_APP + 1, 0, 0);
  MSG message;
  EXPECT_FALSE(PeekMessageW(&message, nullptr, WM_APP + 1, WM_APP + 1, PM_REMOVE));
}

TEST_F(DesktopOfWindows, LetsGoOfTheMouse) {
  const OwnedWindow window = MakeWindow(u"window");
  if (!window) GTEST_SKIP() << "no display";
  SetCapture(window.Get());
  desktop.ReleaseCapture();
  EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(DesktopOfWindows, ColoursATree) {
  ASSERT_NE(LoadLibraryW(L"comctl32.dll"), nullptr);  // registers the tree view class
  const OwnedWindow tree = MakeWindow(u"", WC_TREEVIEWW);
  if (!tree) GTEST_SKIP() << "no display";
  desktop.SetTreeBackColor(Number(tree), 0x112233);
  EXPECT_EQ(SendMessageW(tree.Get(), TVM_GETBKCOLOR, 0, 0), 0x112233);
}

}  // namespace
}  // namespace tavix::windows
