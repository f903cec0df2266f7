#include <algorithm>
#include <vector>

#include "window_test.h"

namespace tavix::win32 {
namespace {

constexpr DWORD kLiveRegionChanged = 0x8019;

struct Announcement {
  DWORD event;
  int control;
  LONG child;
  friend bool operator==(const Announcement&, const Announcement&) = default;
};
std::vector<Announcement> heard;

void CALLBACK Hear(HWINEVENTHOOK, DWORD event, HWND window, LONG, LONG child, DWORD, DWORD) {
  heard.push_back({event, GetDlgCtrlID(window), child});
}

// What a screen reader hears of the window.
class Announcements : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    hook_ = SetWinEventHook(EVENT_OBJECT_CREATE, kLiveRegionChanged, GetModuleHandleW(nullptr), Hear,
                            GetCurrentProcessId(), GetCurrentThreadId(), WINEVENT_INCONTEXT);
    ASSERT_NE(hook_, nullptr);
    heard.clear();
  }
  void TearDown() override {
    UnhookWinEvent(hook_);
    frmPubMain.sbtCancel.Visible = false;
    WindowTest::TearDown();
  }
  static long TimesHeard(DWORD event, int control, LONG child = CHILDID_SELF) {
    return std::ranges::count(heard, Announcement{event, control, child});
  }

 private:
  HWINEVENTHOOK hook_ = nullptr;
};

TEST_F(Announcements, ATickTurnedByKeysInTheResults) {
  for (const TextView name : {u"a", u"b", u"c"}) frmPubMain.lsvResult.Add(name);
  Flush();
  SetFocus(Control(kIdResult));
  Press(Control(kIdResult), VK_DOWN);
  Press(Control(kIdResult), VK_DOWN);
  const int row = frmPubMain.lsvResult.SelectedRow();
  ASSERT_GT(row, 0);
  EXPECT_EQ(TimesHeard(EVENT_OBJECT_STATECHANGE, kIdResult, row), 0);
  Press(Control(kIdResult), VK_SPACE);
  Flush();
  EXPECT_EQ(TimesHeard(EVENT_OBJECT_STATECHANGE, kIdResult, row), 1);
  Press(Control(kIdResult), VK_SPACE);
  Flush();
  EXPECT_EQ(TimesHeard(EVENT_OBJECT_STATECHANGE, kIdResult, row), 2);
}

TEST_F(Announcements, HighlightsOfTheResults) {
  for (const TextView name : {u"a", u"b", u"c"}) frmPubMain.lsvResult.Add(name);
  Flush();
  SetFocus(Control(kIdResult));
  Press(Control(kIdResult), VK_END);
  EXPECT_EQ(TimesHeard(EVENT_OBJECT_SELECTION, kIdResult, 3), 1);
  LVITEMW all{};
  all.stateMask = all.state = LVIS_SELECTED;
  Send(Control(kIdResult), LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&all));
  EXPECT_EQ(TimesHeard(EVENT_OBJECT_SELECTIONWITHIN, kIdResult), 1);
}

TEST_F(Announcements, ATickTurnedByKeysInTheFunctionList) {
  for (const TextView name : {u"all", u"one", u"two"}) frmPubMain.lst.AddItem(name);
  frmPubMain.trvPrivacy.Visible = false;
  frmPubMain.lst.Visible = true;
  Flush();
  SetFocus(Control(kIdFunctions));
  Press(Control(kIdFunctions), VK_DOWN);
  const int row = frmPubMain.lst.ListIndex + 1;
  ASSERT_GT(row, 0);
  Press(Control(kIdFunctions), VK_SPACE);
  Flush();
  EXPECT_EQ(TimesHeard(EVENT_OBJECT_STATECHANGE, kIdFunctions, row), 1);
  frmPubMain.lst.Visible = false;
  frmPubMain.trvPrivacy.Visible = true;
}

TEST_F(Announcements, ATickTurnedByKeysInATree) {
  frmPubMain.trvPrivacy.AddNode(nullptr, u"a", u"First");
  frmPubMain.trvPrivacy.AddNode(nullptr, u"b", u"Second");
  Flush();
  const HWND tree = Control(kIdPrivacyTree);
  SetFocus(tree);
  Press(tree, VK_DOWN);
  heard.clear();
  const auto told = [] {
    const auto isTold = [](const Announcement& one) {
      return one.event == EVENT_OBJECT_STATECHANGE && one.control == kIdPrivacyTree;
    };
    return std::ranges::count_if(heard, isTold);
  };
  Press(tree, VK_SPACE);
  Flush();
  EXPECT_EQ(told(), 1);
}

TEST_F(Announcements, ATickOfABox) {
  frmPubMain.cbxAll.Value = 0;
  Flush();
  heard.clear();
  SetFocus(Control(kIdCheckAll));
  Press(Control(kIdCheckAll), VK_SPACE);
  Flush();
  EXPECT_GE(TimesHeard(EVENT_OBJECT_STATECHANGE, kIdCheckAll), 1);
}

TEST_F(Announcements, AnotherPageBecomesTheCurrentOne) {
  frmPubMain.picPrivacy.BorderStyle = 0;
  frmPubMain.picRegistry.BorderStyle = 1;
  Flush();
  EXPECT_GE(TimesHeard(EVENT_OBJECT_NAMECHANGE, kIdPrivacy), 1);
  EXPECT_GE(TimesHeard(EVENT_OBJECT_NAMECHANGE, kIdRegistry), 1);
  EXPECT_EQ(TimesHeard(EVENT_OBJECT_NAMECHANGE, kIdSystem), 0);
  frmPubMain.picPrivacy.BorderStyle = 1;
  frmPubMain.picRegistry.BorderStyle = 0;
}

TEST_F(Announcements, TheStatusLineButNotTheLinesOfAJob) {
  frmPubMain.lblProgS.Caption = u"Deletes the file C:\\a.";
  Flush();
  EXPECT_EQ(TimesHeard(kLiveRegionChanged, kIdStatus), 1);
  frmPubMain.sbtCancel.Visible = true;
  frmPubMain.lblProgS.Caption = u"Scanning in 'C:\\'";
  Flush();
  frmPubMain.lblProgS.Caption = u"Scanning in 'C:\\a'";
  Flush();
  EXPECT_EQ(TimesHeard(kLiveRegionChanged, kIdStatus), 1);
  frmPubMain.sbtCancel.Visible = false;
  frmPubMain.lblProgS.Caption = u"Finished, no item found.";
  Flush();
  EXPECT_EQ(TimesHeard(kLiveRegionChanged, kIdStatus), 2);
}

}  // namespace
}  // namespace tavix::win32
