#include "window/win32/lists.h"

#include "window_test.h"

namespace tavix::win32 {
namespace {

LRESULT CALLBACK CountMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR wanted,
                              DWORD_PTR count) {
  if (message == wanted) ++*reinterpret_cast<int*>(count);
  return DefSubclassProc(window, message, wParam, lParam);
}

class ListViewBindingTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    list = Control(kIdResult);
  }
  ListView& Model() { return frmPubMain.lsvResult; }
  std::wstring ShownText(int row, int column) const {
    wchar_t text[256]{};
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = 256;
    Send(list, LVM_GETITEMTEXTW, row, reinterpret_cast<LPARAM>(&item));
    return text;
  }
  bool ShownTick(int row) const {
    return Send(list, LVM_GETITEMSTATE, row, LVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2);
  }
  int ShownRows() const { return static_cast<int>(Send(list, LVM_GETITEMCOUNT)); }
  POINT BoxOf(int row) const {
    RECT area{};
    area.left = LVIR_BOUNDS;
    Send(list, LVM_GETITEMRECT, row, reinterpret_cast<LPARAM>(&area));
    return {area.left + 8, (area.top + area.bottom) / 2};
  }
  void AddRows(int count) {
    for (int i = 0; i < count; ++i) {
      ListView::Item item = Model().Add(u"row");
      item.SetSubItems(1, u"name");
      item.SetChecked(true);
    }
  }

  HWND list = nullptr;
};

TEST_F(ListViewBindingTest, AHundredThousandRowsCostOneMessage) {
  int counts = 0;
  SetWindowSubclass(list, CountMessage, LVM_SETITEMCOUNT, reinterpret_cast<DWORD_PTR>(&counts));
  AddRows(100000);
  EXPECT_EQ(ShownRows(), 0);
  Flush();
  EXPECT_EQ(ShownRows(), 100000);
  EXPECT_EQ(counts, 1);
  RemoveWindowSubclass(list, CountMessage, LVM_SETITEMCOUNT);
}

TEST_F(ListViewBindingTest, ShowsTextsAndTicksOfTheModel) {
  AddRows(2);
  Model().Row(2).SetSubItems(1, u"\u4f60\u597d");
  Model().Row(2).SetChecked(false);
  Flush();
  EXPECT_EQ(ShownText(0, 0), L"row");
  EXPECT_EQ(ShownText(1, 1), L"\u4f60\u597d");
  EXPECT_EQ(ShownText(1, 2), L"");
  EXPECT_TRUE(ShownTick(0));
  EXPECT_FALSE(ShownTick(1));
}

TEST_F(ListViewBindingTest, ARowThatHasGoneSinceTheLastFlushIsEmpty) {
  AddRows(3);
  Flush();
  Model().Clear();
  EXPECT_EQ(ShownText(2, 0), L"");
  EXPECT_FALSE(ShownTick(2));
}

TEST_F(ListViewBindingTest, SuspendedPaintingLeavesTheListAlone) {
  Model().PaintingSuspended = true;
  AddRows(10);
  Flush();
  EXPECT_EQ(ShownRows(), 0);
  Model().PaintingSuspended = false;
  Flush();
  EXPECT_EQ(ShownRows(), 10);
}

TEST_F(ListViewBindingTest, AClickOnTheBoxTurnsTheTick) {
  AddRows(3);
  Flush();
  const POINT box = BoxOf(1);
  Click(list, box.x, box.y);
  EXPECT_FALSE(Model().Row(2).Checked());
  EXPECT_TRUE(Model().Row(1).Checked());
  Click(list, box.x, box.y);
  EXPECT_TRUE(Model().Row(2).Checked());
}

TEST_F(ListViewBindingTest, TheSecondOfTwoQuickClicksTurnsItToo) {
  AddRows(1);
  Flush();
  const POINT box = BoxOf(0);
  Click(list, box.x, box.y);
  Click(list, box.x, box.y, WM_LBUTTONDBLCLK);
  EXPECT_TRUE(Model().Row(1).Checked());
}

TEST_F(ListViewBindingTest, AClickOnTheTextTakesTheFocusAndLeavesTheTick) {
  AddRows(3);
  Flush();
  const POINT box = BoxOf(2);
  Click(list, box.x + 40, box.y);
  EXPECT_EQ(Model().SelectedRow(), 3);
  EXPECT_TRUE(Model().Row(3).Checked());
}

TEST_F(ListViewBindingTest, SpaceTurnsTheTickOfTheRowInFocus) {
  AddRows(3);
  Model().SelectRow(2);
  Flush();
  SetFocus(list);
  Press(list, VK_SPACE);
  EXPECT_FALSE(Model().Row(2).Checked());
  EXPECT_TRUE(Model().Row(1).Checked());
  EXPECT_TRUE(Model().Row(3).Checked());
  EXPECT_EQ(Model().SelectedRow(), 2);
}

TEST_F(ListViewBindingTest, SpaceGivesHighlightedRowsTheNewStateOfTheOneInFocus) {
  AddRows(4);
  Model().Row(3).SetChecked(false);
  Model().SelectRows(2, 4, true);
  Model().FocusRow(2);
  Flush();
  SetFocus(list);
  const auto ticks = [this] {
    std::string marks;
    for (int row = 1; row <= Model().Count(); ++row) marks += Model().Row(row).Checked() ? 'x' : '-';
    return marks;
  };
  Press(list, VK_SPACE);
  EXPECT_EQ(ticks(), "x---");
  Press(list, VK_SPACE);
  EXPECT_EQ(ticks(), "xxxx");
  // A row in focus that isn't highlighted turns alone.
  Model().FocusRow(1);
  Flush();
  Press(list, VK_SPACE);
  EXPECT_EQ(ticks(), "-xxx");
}

TEST_F(ListViewBindingTest, AnotherProgramFindsARowByItsText) {
  for (const TextView text : {u"Junk File", u"Empty File", u"Empty Folder"}) Model().Add(text);
  Flush();
  const auto find = [this](int start, UINT flags, const wchar_t* text) {
    LVFINDINFOW by{};
    by.flags = flags;
    by.psz = text;
    return static_cast<int>(
        Send(list, LVM_FINDITEMW, static_cast<WPARAM>(start), reinterpret_cast<LPARAM>(&by)));
  };
  EXPECT_EQ(find(-1, LVFI_STRING, L"empty folder"), 2);
  EXPECT_EQ(find(-1, LVFI_STRING, L"empty"), -1);
  EXPECT_EQ(find(-1, LVFI_PARTIAL, L"empty"), 1);
  EXPECT_EQ(find(2, LVFI_PARTIAL, L"junk"), -1);
  EXPECT_EQ(find(2, LVFI_PARTIAL | LVFI_WRAP, L"junk"), 0);
}

TEST_F(ListViewBindingTest, TheFocusFollowsItsRowThroughSorting) {
  Model().Add(u"b");
  Model().Add(u"a");
  Model().SelectRow(1);
  Flush();
  Model().Sorted = true;
  Flush();
  EXPECT_EQ(Send(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), 1);
  EXPECT_EQ(ShownText(1, 0), L"b");
}

TEST_F(ListViewBindingTest, ARowIsPaintedInItsOwnColour) {
  AddRows(2);
  Model().Row(2).SetForeColor(0x0000FF);
  Flush();
  const auto colorOf = [this](int row) {
    NMLVCUSTOMDRAW draw{};
    draw.nmcd.hdr = {list, kIdResult, static_cast<UINT>(NM_CUSTOMDRAW)};
    draw.nmcd.dwDrawStage = CDDS_ITEMPREPAINT;
    draw.nmcd.dwItemSpec = static_cast<DWORD_PTR>(row);
    Send(mainWindow, WM_NOTIFY, kIdResult, reinterpret_cast<LPARAM>(&draw));
    return draw.clrText;
  };
  EXPECT_EQ(colorOf(0), GetSysColor(COLOR_WINDOWTEXT));
  EXPECT_EQ(colorOf(1), 0x0000FFU);
}

TEST_F(ListViewBindingTest, HeadersShowTheSortMarkAndRaiseTheirNumber) {
  int clicked = 0;
  Model().ColumnClick = [&](int header) { clicked = header; };
  NMLISTVIEW click{};
  click.hdr = {list, kIdResult, static_cast<UINT>(LVN_COLUMNCLICK)};
  click.iSubItem = 2;
  Send(mainWindow, WM_NOTIFY, kIdResult, reinterpret_cast<LPARAM>(&click));
  EXPECT_EQ(clicked, 3);

  const auto header = reinterpret_cast<HWND>(Send(list, LVM_GETHEADER));
  const auto format = [&](int column) {
    HDITEMW item{};
    item.mask = HDI_FORMAT;
    Send(header, HDM_GETITEMW, column, reinterpret_cast<LPARAM>(&item));
    return item.fmt & (HDF_SORTUP | HDF_SORTDOWN);
  };
  Model().SortByClick(0);
  Flush();
  EXPECT_EQ(format(0), HDF_SORTDOWN);
  Model().SortByClick(2);
  Flush();
  EXPECT_EQ(format(0), 0);
  EXPECT_EQ(format(2), HDF_SORTUP) << "sorted by the hidden column";
  EXPECT_EQ(format(4), 0);
  Model().Sorted = false;
  Flush();
  EXPECT_EQ(format(2), 0);
}

TEST_F(ListViewBindingTest, TheHiddenColumnCannotBePulledOpen) {
  const auto header = reinterpret_cast<HWND>(Send(list, LVM_GETHEADER));
  const auto refuses = [&](int column) {
    NMHEADERW pull{};
    pull.hdr = {header, 0, static_cast<UINT>(HDN_BEGINTRACKW)};
    pull.iItem = column;
    return Send(list, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&pull)) != FALSE;
  };
  EXPECT_TRUE(refuses(4));
  EXPECT_FALSE(refuses(1));
}

}  // namespace
}  // namespace tavix::win32
