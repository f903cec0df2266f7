#include "window/win32/tree_binding.h"

#include <vector>

#include "window_test.h"

namespace tavix::win32 {
namespace {

class TreeBindingTest : public WindowTest {
 protected:
  void SetUp() override {
    WindowTest::SetUp();
    tree = Control(kIdPrivacyTree);
    Model().NodeCheck = [this](Node& node) { checks.push_back(node.Key); };
    Model().NodeClick = [this](Node& node) { clicks.push_back(node.Key); };
    root = Model().AddNode(nullptr, u"root", u"Root");
    first = Model().AddNode(root, u"first", u"First");
    second = Model().AddNode(root, u"second", u"Second");
    root->Expanded = true;
    Flush();
  }
  TreeView& Model() { return frmPubMain.trvPrivacy; }
  HTREEITEM Next(WPARAM which, HTREEITEM item = nullptr) const {
    return reinterpret_cast<HTREEITEM>(Send(tree, TVM_GETNEXTITEM, which, reinterpret_cast<LPARAM>(item)));
  }
  HTREEITEM RootItem() const { return Next(TVGN_ROOT); }
  HTREEITEM FirstItem() const { return Next(TVGN_CHILD, RootItem()); }
  UINT State(HTREEITEM item) const {
    return static_cast<UINT>(Send(tree, TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), ~0));
  }
  bool Ticked(HTREEITEM item) const {
    return (State(item) & TVIS_STATEIMAGEMASK) == INDEXTOSTATEIMAGEMASK(2);
  }
  bool Open(HTREEITEM item) const { return (State(item) & TVIS_EXPANDED) != 0; }
  // The left end of the label. The box is left of it.
  POINT LabelOf(HTREEITEM item) const {
    union {
      HTREEITEM item;
      RECT area;
    } place{};
    place.item = item;
    Send(tree, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&place));
    return {place.area.left, (place.area.top + place.area.bottom) / 2};
  }
  int TextHeightOfTree() const {
    const HDC context = GetDC(tree);
    const auto old = SelectObject(context, reinterpret_cast<HGDIOBJ>(Send(tree, WM_GETFONT)));
    TEXTMETRICW metrics{};
    GetTextMetricsW(context, &metrics);
    SelectObject(context, old);
    ReleaseDC(tree, context);
    return static_cast<int>(metrics.tmHeight);
  }
  void ClickBox(HTREEITEM item, UINT press = WM_LBUTTONDOWN) {
    const POINT label = LabelOf(item);
    Click(tree, label.x - 8, label.y, press);
    Flush();
  }

  HWND tree = nullptr;
  Node* root = nullptr;
  Node* first = nullptr;
  Node* second = nullptr;
  std::vector<Text> checks, clicks;
};

TEST_F(TreeBindingTest, ShowsNodesWithTheirTicks) {
  EXPECT_TRUE(Open(RootItem()));
  EXPECT_FALSE(Ticked(FirstItem()));
  first->Checked = true;
  Flush();
  EXPECT_TRUE(Ticked(FirstItem()));
  EXPECT_FALSE(Ticked(Next(TVGN_NEXT, FirstItem())));
  EXPECT_TRUE(checks.empty());
}

TEST_F(TreeBindingTest, RowsThatAllFitHaveNoScrollBarAlthoughTextsAreCut) {
  const auto scrolls = [this] { return (GetWindowLongPtrW(tree, GWL_STYLE) & WS_VSCROLL) != 0; };
  Model().AddNode(root, u"long", Text(500, u'x'));
  // As many nodes as fit without scrolling, at the smallest row height.
  RECT area;
  GetClientRect(tree, &area);
  const int text = TextHeightOfTree();
  const int fitting = static_cast<int>(area.bottom) / (text + 3);
  while (Model().NodeCount() < fitting) Model().AddNode(root, ToText(Model().NodeCount()), u"x");
  Flush();
  EXPECT_FALSE(scrolls());
  while (Model().NodeCount() < 3 * fitting) Model().AddNode(root, ToText(Model().NodeCount()), u"x");
  Flush();
  EXPECT_TRUE(scrolls());
  Send(tree, WM_VSCROLL, SB_BOTTOM);
  EXPECT_NE(Next(TVGN_FIRSTVISIBLE), RootItem());
}

TEST_F(TreeBindingTest, AClickOnTheBoxTurnsTheTickOnce) {
  ClickBox(FirstItem());
  EXPECT_EQ(checks, std::vector<Text>{u"first"});
  EXPECT_TRUE(first->Checked);
  EXPECT_TRUE(Ticked(FirstItem()));
  ClickBox(FirstItem(), WM_LBUTTONDBLCLK);
  EXPECT_EQ(checks.size(), 2U);
  EXPECT_FALSE(first->Checked);
  EXPECT_FALSE(Ticked(FirstItem()));
  EXPECT_TRUE(clicks.empty());
}

TEST_F(TreeBindingTest, AnArrowKeyIsAClickOnTheNodeThatItBringsTheFocusTo) {
  SetFocus(tree);
  Send(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(RootItem()));
  Press(tree, VK_DOWN);
  Press(tree, VK_DOWN);
  Press(tree, VK_DOWN);  // already at the last one
  Press(tree, VK_UP);
  EXPECT_EQ(clicks, (std::vector<Text>{u"first", u"second", u"first"}));
  EXPECT_TRUE(checks.empty());
}

// In this tree a click expands or collapses a node. A key that only passes it must not.
TEST_F(TreeBindingTest, AnArrowKeyInATreeThatFoldsOnlyMovesTheFocus) {
  TreeView& scope = frmPubMain.trvRes;
  Model().Visible = false;
  scope.Visible = true;
  int clicked = 0;
  scope.NodeClick = [&clicked](Node&) { ++clicked; };
  scope.AddNode(nullptr, u"one", u"One");
  scope.AddNode(nullptr, u"two", u"Two");
  Flush();
  const HWND folding = Control(kIdScopeTree);
  const auto item = [folding](WPARAM which) {
    return reinterpret_cast<HTREEITEM>(Send(folding, TVM_GETNEXTITEM, which));
  };
  Send(folding, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item(TVGN_ROOT)));
  SetFocus(folding);
  Press(folding, VK_DOWN);
  EXPECT_NE(item(TVGN_CARET), item(TVGN_ROOT));
  EXPECT_EQ(clicked, 0);
  scope.NodeClick = nullptr;
  scope.Clear();
  scope.Visible = false;
  Model().Visible = true;
}

TEST_F(TreeBindingTest, SpaceTurnsTheTickAndEnterClicks) {
  Send(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(FirstItem()));
  SetFocus(tree);
  Press(tree, VK_SPACE);
  Flush();
  EXPECT_EQ(checks, std::vector<Text>{u"first"});
  EXPECT_TRUE(Ticked(FirstItem()));
  Press(tree, VK_RETURN);
  EXPECT_EQ(clicks, std::vector<Text>{u"first"});
}

// The letters are narrow, so the points stand at the right edge of the tree.
TEST_F(TreeBindingTest, ACaptionThatIsCutEndsInAnEllipsis) {
  Model().AddNode(nullptr, u"wide", Text(300, u'l'));
  Flush();
  UpdateWindow(tree);
  RECT area;
  GetClientRect(tree, &area);
  const POINT label = LabelOf(Next(TVGN_NEXT, RootItem()));
  const int half = TextHeightOfTree() / 2;
  const HDC context = GetDC(tree);
  const auto inks = [&](int top, int bottom) {
    int count = 0;
    for (int x = area.right - 12; x < area.right - 2; ++x)
      for (int y = top; y < bottom; ++y) count += GetPixel(context, x, y) != GetPixel(context, 0, 0) ? 1 : 0;
    return count;
  };
  EXPECT_EQ(inks(label.y - half, label.y), 0);
  EXPECT_GT(inks(label.y, label.y + half), 0);
  ReleaseDC(tree, context);
}

TEST_F(TreeBindingTest, ALetterIsAClickOnTheNodeThatItLeadsTo) {
  SetFocus(tree);
  Send(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(RootItem()));
  Send(tree, WM_CHAR, 's', 1);
  EXPECT_EQ(clicks, std::vector<Text>{u"second"});
  EXPECT_EQ(Next(TVGN_CARET), Next(TVGN_NEXT, FirstItem()));
}

TEST_F(TreeBindingTest, OpeningAnUnopenedNodeIsAClickOnIt) {
  first->Unopened = true;
  Flush();
  Send(tree, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(FirstItem()));
  SetFocus(tree);
  Press(tree, VK_RIGHT);
  EXPECT_EQ(clicks, std::vector<Text>{u"first"});
  // Once it is known to have nothing below, there is nothing to open.
  first->Unopened = false;
  Flush();
  Press(tree, VK_RIGHT);
  EXPECT_EQ(clicks.size(), 1U);
}

TEST_F(TreeBindingTest, OpeningAndClosingReachesTheModel) {
  Send(tree, TVM_EXPAND, TVE_COLLAPSE, reinterpret_cast<LPARAM>(RootItem()));
  // A change by the program raises no event; one by the user does.
  NMTREEVIEWW notice{};
  notice.hdr = {tree, kIdPrivacyTree, static_cast<UINT>(TVN_ITEMEXPANDEDW)};
  notice.action = TVE_COLLAPSE;
  notice.itemNew.hItem = RootItem();
  Send(mainWindow, WM_NOTIFY, kIdPrivacyTree, reinterpret_cast<LPARAM>(&notice));
  EXPECT_FALSE(root->Expanded);
  root->Expanded = true;
  Flush();
  EXPECT_TRUE(Open(RootItem()));
}

TEST_F(TreeBindingTest, NodesAddedLaterAreBelowTheirParent) {
  Model().AddNode(first, u"deep", u"Deep");
  first->Expanded = true;
  Flush();
  EXPECT_NE(Next(TVGN_CHILD, FirstItem()), nullptr);
  EXPECT_TRUE(Open(FirstItem()));
}

TEST_F(TreeBindingTest, AClearedTreeShowsWhatIsAddedAfterwards) {
  first->Checked = true;
  Model().Clear();
  Model().AddNode(nullptr, u"other", u"Other")->Checked = true;
  Flush();
  EXPECT_EQ(Send(tree, TVM_GETCOUNT), 1);
  EXPECT_TRUE(Ticked(RootItem()));
}

TEST_F(TreeBindingTest, ANodeIsPaintedOnItsOwnBackColor) {
  first->BackColor = 0x123456;
  Flush();
  NMTVCUSTOMDRAW draw{};
  draw.nmcd.hdr = {tree, kIdPrivacyTree, static_cast<UINT>(NM_CUSTOMDRAW)};
  draw.nmcd.dwDrawStage = CDDS_ITEMPREPAINT;
  draw.nmcd.lItemlParam = first->Index;
  Send(mainWindow, WM_NOTIFY, kIdPrivacyTree, reinterpret_cast<LPARAM>(&draw));
  EXPECT_EQ(draw.clrTextBk, 0x123456U);
}

TEST_F(TreeBindingTest, AHalfTickedBranchHasABoxOfItsOwn) {
  const auto box = [this] { return (State(RootItem()) & TVIS_STATEIMAGEMASK) >> 12; };
  EXPECT_EQ(box(), 1U);
  root->Checked = true;
  Flush();
  EXPECT_EQ(box(), 2U);
  root->BackColor = kButtonFace;
  Flush();
  EXPECT_EQ(box(), 3U);
  root->BackColor = kWindowBackground;
  Flush();
  EXPECT_EQ(box(), 2U);
}

}  // namespace
}  // namespace tavix::win32
