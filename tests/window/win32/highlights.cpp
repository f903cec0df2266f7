#include <array>
#include <numeric>
#include <string>

#include "window_test.h"

namespace tavix::win32 {
namespace {

int notices = 0;

// Counts the notifications of changed rows.
LRESULT CALLBACK CountNotices(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR, DWORD_PTR) {
  if (message == WM_NOTIFY) {
    const UINT code = reinterpret_cast<const NMHDR*>(lParam)->code;
    if (code == LVN_ITEMCHANGED || code == LVN_ODSTATECHANGED) ++notices;
  }
  return DefSubclassProc(window, message, wParam, lParam);
}

// Milliseconds of processor time that this program has taken. Other programs don't count.
int ProcessorTime() {
  FILETIME created, ended, kernel, user;
  GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
  const auto hundreds = [](const FILETIME& time) {
    return static_cast<int64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
  };
  return static_cast<int>((hundreds(kernel) + hundreds(user)) / 10'000);
}

class Highlights : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    list = Control(kIdResult);
    SetFocus(list);
    SetWindowSubclass(mainWindow, CountNotices, 9, 0);
    notices = 0;
  }
  void TearDown() override {
    RemoveWindowSubclass(mainWindow, CountNotices, 9);
    SetKeys({});
    WindowTest::TearDown();
  }
  static ListView& Model() { return frmPubMain.lsvResult; }
  static void AddRows(int count) {
    for (int i = 0; i < count; ++i) Model().Add(u"row");
    Flush();
  }
  static std::string OfModel() {
    std::string marks;
    for (int row = 1; row <= Model().Count(); ++row) marks += Model().Row(row).Selected() ? 'x' : '-';
    return marks;
  }
  std::string OfList() const {
    std::string marks;
    for (int row = 0; row < Model().Count(); ++row)
      marks += Send(list, LVM_GETITEMSTATE, static_cast<WPARAM>(row), LVIS_SELECTED) != 0 ? 'x' : '-';
    return marks;
  }
  int Focus() const {
    return static_cast<int>(Send(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED));
  }
  LPARAM PointIn(int row) const {
    RECT area{};
    area.left = LVIR_LABEL;
    Send(list, LVM_GETITEMRECT, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&area));
    return MAKELPARAM(area.left + 10, (area.top + area.bottom) / 2);
  }
  void ClickRow(int row, WPARAM keys = 0) {
    const LPARAM point = PointIn(row);
    PostMessageW(list, WM_LBUTTONUP, keys, point);
    Send(list, WM_LBUTTONDOWN, MK_LBUTTON | keys, point);
    window->HandleWaiting();
    Flush();
  }
  static void SetKeys(std::initializer_list<int> held) {
    std::array<BYTE, 256> keys{};
    for (const int key : held) keys[static_cast<size_t>(key)] = 0x80;
    SetKeyboardState(keys.data());
  }
  void PressWith(std::initializer_list<int> held, WPARAM key) {
    SetKeys(held);
    Send(list, WM_KEYDOWN, key, 1);
    SetKeys({});
    Flush();
  }

  HWND list = nullptr;
};

TEST_F(Highlights, AClickHighlightsOneRowAndCtrlAddsAndTakesAway) {
  AddRows(5);
  ClickRow(1);
  EXPECT_EQ(OfModel(), "-x---");
  ClickRow(3, MK_CONTROL);
  EXPECT_EQ(OfModel(), "-x-x-");
  ClickRow(1, MK_CONTROL);
  EXPECT_EQ(OfModel(), "---x-");
  ClickRow(0);
  EXPECT_EQ(OfModel(), "x----");
  EXPECT_EQ(OfList(), OfModel());
}

TEST_F(Highlights, ShiftHighlightsTheRowsBetween) {
  AddRows(6);
  ClickRow(1);
  ClickRow(4, MK_SHIFT);
  EXPECT_EQ(OfModel(), "-xxxx-");
  ClickRow(2, MK_SHIFT);
  EXPECT_EQ(OfModel(), "-xx---");
  PressWith({VK_SHIFT}, VK_DOWN);
  EXPECT_EQ(OfModel(), "-xxx--");
  PressWith({}, VK_DOWN);
  EXPECT_EQ(OfModel(), "----x-");
  EXPECT_EQ(OfList(), OfModel());
}

TEST_F(Highlights, ManyRowsAreHighlightedAndLeftInAFewMessages) {
  constexpr int kRows = 20'000;
  AddRows(kRows);
  notices = 0;
  PressWith({VK_CONTROL}, 'A');
  EXPECT_EQ(Send(list, LVM_GETSELECTEDCOUNT), kRows);
  EXPECT_TRUE(Model().Row(1).Selected());
  EXPECT_TRUE(Model().Row(kRows).Selected());
  EXPECT_LE(notices, 4);
  ClickRow(2);
  EXPECT_EQ(Send(list, LVM_GETSELECTEDCOUNT), 1);
  EXPECT_FALSE(Model().Row(1).Selected());
  EXPECT_TRUE(Model().Row(3).Selected());
  EXPECT_LE(notices, 10);
}

// The report has the processor time. No limit is checked: the machine may be slow.
TEST_F(Highlights, AMillionRowsAreHighlightedAndLeft) {
  constexpr int kRows = 1'000'000;
  AddRows(kRows);
  notices = 0;
  const int start = ProcessorTime();
  PressWith({VK_CONTROL}, 'A');
  RecordProperty("highlighting_ms", ProcessorTime() - start);
  EXPECT_EQ(Send(list, LVM_GETSELECTEDCOUNT), kRows);
  EXPECT_TRUE(Model().Row(kRows / 2).Selected());
  const int next = ProcessorTime();
  ClickRow(2);
  RecordProperty("leaving_ms", ProcessorTime() - next);
  EXPECT_EQ(Send(list, LVM_GETSELECTEDCOUNT), 1);
  EXPECT_FALSE(Model().Row(kRows / 2).Selected());
  EXPECT_LE(notices, 10);
}

// Ranges of the same length follow each other.
TEST_F(Highlights, ARangeThatTurnsAroundItsEndReachesTheModel) {
  AddRows(7);
  ClickRow(3);
  ClickRow(1, MK_SHIFT);
  EXPECT_EQ(OfModel(), "-xxx---");
  ClickRow(5, MK_SHIFT);
  EXPECT_EQ(OfModel(), "---xxx-");
  EXPECT_EQ(OfList(), OfModel());
}

// The report has the processor time.
TEST_F(Highlights, ARangeOfManyRowsCostsAFewMessages) {
  constexpr int kRows = 200'000;
  AddRows(kRows);
  ClickRow(1);
  notices = 0;
  const int start = ProcessorTime();
  PressWith({VK_SHIFT}, VK_END);
  RecordProperty("highlighting_ms", ProcessorTime() - start);
  EXPECT_EQ(Model().SelectedCount(), kRows - 1);
  EXPECT_FALSE(Model().Row(1).Selected());
  EXPECT_EQ(Send(list, LVM_GETSELECTEDCOUNT), kRows - 1);
  EXPECT_LE(notices, 6);
  const int next = ProcessorTime();
  PressWith({}, VK_UP);
  RecordProperty("leaving_ms", ProcessorTime() - next);
  EXPECT_EQ(Model().SelectedCount(), 1);
  EXPECT_TRUE(Model().Row(kRows - 1).Selected());
}

TEST_F(Highlights, KeysHighlightTheRowToWhichTheyLead) {
  AddRows(100);
  const int page = static_cast<int>(Send(list, LVM_GETCOUNTPERPAGE));
  ASSERT_GT(page, 3);
  const auto leadsTo = [this](WPARAM key) {
    PressWith({}, key);
    EXPECT_EQ(Model().SelectedCount(), 1);
    const int row = Focus();
    EXPECT_TRUE(Model().Row(row + 1).Selected());
    EXPECT_EQ(Model().SelectedRow(), row + 1);
    return row;
  };
  EXPECT_EQ(leadsTo(VK_DOWN), 0);
  EXPECT_EQ(leadsTo(VK_DOWN), 1);
  EXPECT_EQ(leadsTo(VK_UP), 0);
  EXPECT_EQ(leadsTo(VK_UP), 0);
  EXPECT_EQ(leadsTo(VK_NEXT), page - 1);
  EXPECT_EQ(leadsTo(VK_NEXT), 2 * (page - 1));
  EXPECT_EQ(Send(list, LVM_GETTOPINDEX), page - 1);
  EXPECT_EQ(leadsTo(VK_PRIOR), page - 1);
  EXPECT_EQ(leadsTo(VK_PRIOR), 0);
  EXPECT_EQ(leadsTo(VK_END), 99);
  EXPECT_EQ(leadsTo(VK_DOWN), 99);
  EXPECT_EQ(leadsTo(VK_HOME), 0);
}

TEST_F(Highlights, KeysWithCtrlMoveTheFocusAloneAndWithShiftAddARange) {
  AddRows(8);
  ClickRow(1);
  PressWith({VK_CONTROL}, VK_DOWN);
  PressWith({VK_CONTROL}, VK_DOWN);
  PressWith({VK_CONTROL}, VK_DOWN);
  EXPECT_EQ(OfModel(), "-x------");
  EXPECT_EQ(Focus(), 4);
  ClickRow(5, MK_CONTROL);
  PressWith({VK_SHIFT, VK_CONTROL}, VK_END);
  EXPECT_EQ(OfModel(), "-x---xxx");
  ClickRow(4, MK_CONTROL | MK_SHIFT);
  EXPECT_EQ(OfModel(), "-x--xxxx");
  PressWith({VK_SHIFT}, VK_HOME);
  EXPECT_EQ(OfModel(), "xxxxxx--");
  EXPECT_EQ(OfList(), OfModel());
}

TEST_F(Highlights, TheRightButtonKeepsThemOnAHighlightedRowAndMovesThemToAnother) {
  AddRows(5);
  ClickRow(1);
  ClickRow(3, MK_SHIFT);
  const auto pressRight = [this](int row) {
    PostMessageW(list, WM_RBUTTONUP, 0, PointIn(row));
    Send(list, WM_RBUTTONDOWN, MK_RBUTTON, PointIn(row));
    window->HandleWaiting();
    Flush();
  };
  pressRight(2);
  EXPECT_EQ(OfModel(), "-xxx-");
  EXPECT_EQ(Focus(), 2);
  pressRight(4);
  EXPECT_EQ(OfModel(), "----x");
  EXPECT_EQ(Focus(), 4);
}

TEST_F(Highlights, AClickBesideAllRowsEndsThem) {
  AddRows(3);
  PressWith({VK_CONTROL}, 'A');
  const LPARAM beside = PointIn(2) + MAKELPARAM(0, 40);
  PostMessageW(list, WM_LBUTTONUP, 0, beside);
  Send(list, WM_LBUTTONDOWN, MK_LBUTTON, beside);
  window->HandleWaiting();
  EXPECT_EQ(OfModel(), "---");
  EXPECT_EQ(OfList(), "---");
}

TEST_F(Highlights, OtherProgramsReadAndChangeThem) {
  AddRows(6);
  const auto next = [this](int row) {
    return static_cast<int>(Send(list, LVM_GETNEXTITEM, static_cast<WPARAM>(row), LVNI_SELECTED));
  };
  EXPECT_EQ(next(-1), -1);
  const auto change = [this](int row, UINT mask, UINT state) {
    LVITEMW item{};
    item.stateMask = mask;
    item.state = state;
    EXPECT_TRUE(Send(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item)));
    Flush();
  };
  change(1, LVIS_SELECTED, LVIS_SELECTED);
  change(4, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  EXPECT_EQ(OfModel(), "-x--x-");
  EXPECT_EQ(Model().SelectedRow(), 5);
  EXPECT_EQ(next(-1), 1);
  EXPECT_EQ(next(1), 4);
  EXPECT_EQ(next(4), -1);
  EXPECT_EQ(Send(list, LVM_GETSELECTEDCOUNT), 2);
  change(1, LVIS_SELECTED, 0);
  EXPECT_EQ(OfModel(), "----x-");
  change(-1, LVIS_SELECTED, LVIS_SELECTED);
  EXPECT_EQ(OfModel(), "xxxxxx");
  EXPECT_EQ(Focus(), 4);
  change(-1, LVIS_SELECTED, 0);
  EXPECT_EQ(OfModel(), "------");
}

TEST_F(Highlights, FollowTheirRowsThroughSortingAndRemoval) {
  for (const TextView name : {u"d", u"b", u"c", u"a"}) Model().Add(name);
  Model().Row(1).SetSelected(true);
  Model().Row(2).SetSelected(true);
  Flush();
  EXPECT_EQ(OfList(), "xx--");
  Model().Sorted = true;
  Flush();
  EXPECT_EQ(OfList(), "-x-x");
  Model().Remove(1);
  Flush();
  EXPECT_EQ(OfList(), "x-x");
  Model().SelectAll(false);
  Flush();
  EXPECT_EQ(OfList(), "---");
  Model().SelectAll(true);
  Flush();
  EXPECT_EQ(OfList(), "xxx");
}

TEST_F(Highlights, TicksLeaveThemAlone) {
  AddRows(3);
  ClickRow(1);
  Model().Row(1).SetChecked(true);
  Model().Row(2).SetChecked(true);
  Flush();
  EXPECT_EQ(OfModel(), "-x-");
  EXPECT_EQ(OfList(), "-x-");
}

}  // namespace
}  // namespace tavix::win32
