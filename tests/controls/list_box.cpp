#include "controls/list_box.h"
#include "support/case.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

TEST(ListBox, KeepsRowsInTheirOrderWithTheirSelection) {
  ListBox list;
  for (const TextView text : {u"a", u"b", u"c"}) list.AddItem(text);
  list.SetSelected(0, true);
  list.SetSelected(2, true);
  list.RemoveItem(1);
  ASSERT_EQ(list.ListCount(), 2);
  EXPECT_EQ(list.List(0), u"a");
  EXPECT_EQ(list.List(1), u"c");
  EXPECT_TRUE(list.Selected(0));
  EXPECT_TRUE(list.Selected(1));
  list.SetSelected(1, false);
  EXPECT_FALSE(list.Selected(1));
}

TEST(ListBox, NewRowIsNotSelected) {
  ListBox list;
  list.AddItem(u"a");
  EXPECT_FALSE(list.Selected(0));
}

TEST(ListBox, RowThatIsntThereIsEmptyAndCantBeChanged) {
  ListBox list;
  list.AddItem(u"a");
  for (const int row : {-1, 1}) {
    SCOPED_TRACE(Case(row));
    list.SetSelected(row, true);
    list.RemoveItem(row);
    EXPECT_EQ(list.List(row), u"");
    EXPECT_FALSE(list.Selected(row));
  }
  EXPECT_EQ(list.ListCount(), 1);
}

TEST(ListBox, ClearRemovesAllRows) {
  ListBox list;
  list.AddItem(u"a");
  list.Clear();
  EXPECT_EQ(list.ListCount(), 0);
}

}  // namespace
}  // namespace tavix
