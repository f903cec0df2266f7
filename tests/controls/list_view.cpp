#include "controls/list_view.h"

#include <gtest/gtest.h>

#include <random>
#include <utility>

#include "text/letter_case.h"

namespace tavix {
namespace {

std::vector<Text> Texts(ListView& list, int column = 0) {
  std::vector<Text> texts;
  for (int row = 1; row <= list.Count(); ++row) texts.emplace_back(list.Row(row).SubItems(column));
  return texts;
}

void Fill(ListView& list, const std::vector<Text>& texts) {
  for (size_t i = 0; i < texts.size(); ++i) list.Add(texts[i]).SetSubItems(1, ToText(static_cast<int>(i)));
}

TEST(ListView, RowsAreAddressedFromOne) {
  ListView list;
  ListView::Item item = list.Add(u"Font Issue");
  item.SetSubItems(4, u"key");
  item.SetTag(u"F");
  item.SetChecked(true);
  list.Add(u"second");
  EXPECT_EQ(list.Count(), 2);
  EXPECT_EQ(list.Row(1).Text(), u"Font Issue");
  EXPECT_EQ(list.Row(1).SubItems(4), u"key");
  EXPECT_EQ(list.Row(1).SubItems(2), u"") << "never set";
  EXPECT_EQ(list.Row(1).Tag(), u"F");
  EXPECT_TRUE(list.Row(1).Checked());
  EXPECT_FALSE(list.Row(2).Checked());
  EXPECT_EQ(list.Row(2).ForeColor(), std::nullopt);
  list.Row(2).SetForeColor(0x0000FF);
  EXPECT_EQ(list.Row(2).ForeColor(), 0x0000FFU);
}

TEST(ListView, SortsByTheTextOfAColumnLetterCaseAside) {
  ListView list;
  Fill(list, {u"b", u"A", u"C", u"a", u"B"});
  list.Sorted = true;
  EXPECT_EQ(Texts(list), (std::vector<Text>{u"A", u"a", u"b", u"B", u"C"}));
  list.SortOrder = 1;
  EXPECT_EQ(Texts(list), (std::vector<Text>{u"C", u"b", u"B", u"A", u"a"})) << "equal texts keep their order";
  list.SortKey = 1;
  list.SortOrder = 0;
  EXPECT_EQ(Texts(list, 1), (std::vector<Text>{u"0", u"1", u"2", u"3", u"4"}));
}

TEST(ListView, LaterRowsArriveInSortedPosition) {
  ListView list;
  list.Sorted = true;
  Fill(list, {u"m", u"z"});
  EXPECT_EQ(Texts(list), (std::vector<Text>{u"m", u"z"}));
  Fill(list, {u"a", u"n"});
  EXPECT_EQ(Texts(list), (std::vector<Text>{u"a", u"m", u"n", u"z"}));
  list.Clear();
  Fill(list, {u"q", u"b"});
  EXPECT_EQ(Texts(list), (std::vector<Text>{u"b", u"q"})) << "sorting outlives the rows";
}

TEST(ListView, ARowWhoseSortTextChangesTakesItsNewPlace) {
  ListView list;
  list.Sorted = true;
  Fill(list, {u"a", u"b", u"c"});
  list.Row(1).SetSubItems(0, u"x");
  EXPECT_EQ(Texts(list), (std::vector<Text>{u"b", u"c", u"x"}));
}

TEST(ListView, SwitchingSortingOffLeavesTheRowsInPlace) {
  ListView list;
  list.Sorted = true;
  Fill(list, {u"b", u"a"});
  list.Sorted = false;
  Fill(list, {u"0"});
  EXPECT_EQ(Texts(list), (std::vector<Text>{u"a", u"b", u"0"}));
}

TEST(ListView, RemovesFromEitherEndAndFromTheMiddle) {
  ListView list;
  Fill(list, {u"0", u"1", u"2", u"3", u"4", u"5", u"6"});
  list.Remove(6);
  list.Remove(3);
  list.Remove(1);
  EXPECT_EQ(Texts(list), (std::vector<Text>{u"1", u"3", u"4", u"6"}));
  list.Remove(4);
  list.Add(u"7");
  EXPECT_EQ(Texts(list), (std::vector<Text>{u"1", u"3", u"4", u"7"}));
}

// Compares the list with a vector into which each row is inserted in its sorted place.
TEST(ListView, BehavesAsInsertingInPlaceWould) {
  std::mt19937 random(20240229);
  const auto below = [&random](int bound) {
    return static_cast<int>(random() % static_cast<unsigned>(bound));
  };
  for (int round = 0; round < 60; ++round) {
    ListView list;
    std::vector<std::pair<Text, Text>> plain;  // text and mark
    bool sorted = false;
    bool descending = false;
    const auto before = [&](const auto& a, const auto& b) {
      const int difference = CompareIgnoringCase(a.first, b.first);
      return descending ? difference > 0 : difference < 0;
    };
    for (int step = 0; step < 200; ++step) {
      switch (below(8)) {
        case 0:
          sorted = true;
          descending = !descending;
          list.Sorted = true;
          list.SortOrder = descending ? 1 : 0;
          std::stable_sort(plain.begin(), plain.end(), before);
          break;
        case 1:
        case 2:
          if (plain.empty()) break;
          {
            const int row = below(static_cast<int>(plain.size()));
            plain.erase(plain.begin() + row);
            list.Remove(row + 1);
          }
          break;
        case 3:
          if (below(20) != 0) break;
          plain.clear();
          list.Clear();
          break;
        default: {
          Text text(u"C:\\Users\\");
          for (int i = below(4); i > 0; --i) text += u"aAbBcä_"[below(7)];
          const std::pair row(text, ToText(step));
          plain.insert(sorted ? std::upper_bound(plain.begin(), plain.end(), row, before) : plain.end(), row);
          list.Add(text).SetSubItems(1, ToText(step));
        }
      }
      ASSERT_EQ(list.Count(), static_cast<int>(plain.size()));
      if (below(4) != 0) continue;
      for (int row = 1; row <= list.Count(); ++row) {
        ASSERT_EQ(list.Row(row).Text(), plain[row - 1].first);
        ASSERT_EQ(list.Row(row).SubItems(1), plain[row - 1].second);
      }
    }
  }
}

TEST(ListView, TheSelectedRowKeepsBeingSelectedWhenItMoves) {
  ListView list;
  Fill(list, {u"b", u"a", u"c"});
  EXPECT_EQ(list.SelectedRow(), 0);
  list.SelectRow(1);
  list.Sorted = true;
  EXPECT_EQ(list.SelectedRow(), 2);
  list.Remove(1);
  EXPECT_EQ(list.SelectedRow(), 1);
  list.Remove(1);
  EXPECT_EQ(list.SelectedRow(), 0);
}

TEST(ListView, TextsOfAnyLengthSurvive) {
  ListView list;
  const Text longest(200000, u'x');
  list.Add(longest).SetSubItems(1, u"short");
  list.Add(u"").SetSubItems(1, longest + u"y");
  EXPECT_EQ(list.Row(1).Text(), longest);
  EXPECT_EQ(list.Row(1).SubItems(1), u"short");
  EXPECT_EQ(list.Row(2).Text(), u"");
  EXPECT_EQ(list.Row(2).SubItems(1), longest + u"y");
}

struct CountingPeer : ControlPeer {
  int changes = 0;
  void ModelChanged() override { ++changes; }
};

TEST(ListView, NotifiesThePeerOfRowsAndTicks) {
  ListView list;
  CountingPeer peer;
  list.peer = &peer;
  ListView::Item item = list.Add(u"a");
  EXPECT_GT(peer.changes, 0);
  peer.changes = 0;
  item.SetChecked(true);
  EXPECT_EQ(peer.changes, 1);
  item.SetChecked(true);
  EXPECT_EQ(peer.changes, 1);
  list.Remove(1);
  EXPECT_EQ(peer.changes, 2);
  list.Clear();
  EXPECT_EQ(peer.changes, 3);
}

TEST(ListView, RowsAreHighlightedOneByOneAllAtOnceAndNotAtAll) {
  ListView list;
  for (const TextView name : {u"a", u"b", u"c"}) list.Add(name);
  const auto highlighted = [&] {
    std::string marks;
    for (int row = 1; row <= list.Count(); ++row) marks += list.Row(row).Selected() ? 'x' : '-';
    return marks;
  };
  EXPECT_EQ(highlighted(), "---");
  list.Row(2).SetSelected(true);
  list.Row(3).SetSelected(true);
  EXPECT_EQ(highlighted(), "-xx");
  list.SelectRow(1);
  EXPECT_EQ(highlighted(), "x--");
  list.FocusRow(2);
  EXPECT_EQ(highlighted(), "x--");
  list.SelectAll(true);
  EXPECT_EQ(highlighted(), "xxx");
  list.SelectAll(false);
  EXPECT_EQ(highlighted(), "---");
}

// Counts the changes that a real list would be told.
class ListPeer : public ControlPeer {
 public:
  explicit ListPeer(ListView& list) : list_(list) { list.peer = this; }
  ~ListPeer() override { list_.peer = nullptr; }
  void ModelChanged() override { ++changes; }
  int changes = 0;

 private:
  ListView& list_;
};

TEST(ListView, ManyRowsAreHighlightedAndTickedInOneChange) {
  ListView list;
  Fill(list, std::vector<Text>(1000, u"row"));
  ListPeer peer(list);
  list.SelectRows(11, 900, true);
  EXPECT_EQ(peer.changes, 1);
  EXPECT_EQ(list.SelectedCount(), 890);
  EXPECT_FALSE(list.Row(10).Selected());
  EXPECT_TRUE(list.Row(11).Selected());
  EXPECT_TRUE(list.Row(900).Selected());
  EXPECT_FALSE(list.Row(901).Selected());
  list.CheckSelected(true);
  EXPECT_EQ(peer.changes, 2);
  EXPECT_FALSE(list.Row(10).Checked());
  EXPECT_TRUE(list.Row(11).Checked());
  EXPECT_FALSE(list.Row(901).Checked());
  list.SelectAll(false);
  EXPECT_EQ(peer.changes, 3);
  EXPECT_EQ(list.SelectedCount(), 0);
  list.SelectAll(false);
  EXPECT_EQ(peer.changes, 3) << "there was no highlight to take away";
  list.SelectRows(-5, 5000, true);
  EXPECT_EQ(list.SelectedCount(), 1000) << "positions out of range are left out";
}

TEST(ListView, CountsHighlightedRows) {
  ListView list;
  Fill(list, {u"a", u"b", u"c"});
  list.Row(1).SetSelected(true);
  list.Row(1).SetSelected(true);
  list.Row(2).SetSelected(true);
  EXPECT_EQ(list.SelectedCount(), 2);
  list.Remove(1);
  EXPECT_EQ(list.SelectedCount(), 1);
  list.SelectRow(2);
  EXPECT_EQ(list.SelectedCount(), 1);
  EXPECT_TRUE(list.Row(2).Selected());
  list.Clear();
  EXPECT_EQ(list.SelectedCount(), 0);
}

TEST(ListView, KnowsTheHeaderByWhoseKeyItIsSorted) {
  ListView list;
  list.ColumnHeaders[2].Key = 4;
  Fill(list, {u"a", u"b"});
  EXPECT_EQ(list.SortedHeader(), -1);
  list.SortByClick(1);
  EXPECT_EQ(list.SortedHeader(), 1);
  EXPECT_EQ(list.SortKey, 1);
  list.SortByClick(2);
  EXPECT_EQ(list.SortedHeader(), 2);
  EXPECT_EQ(list.SortKey, 4);
  list.Sorted = false;
  EXPECT_EQ(list.SortedHeader(), -1);
}

}  // namespace
}  // namespace tavix
