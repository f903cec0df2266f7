#include "controls/control.h"

#include <gtest/gtest.h>

#include "controls/check_list.h"

namespace tavix {
namespace {

struct CountingPeer : ControlPeer {
  int changes = 0;
  void ModelChanged() override { ++changes; }
};

TEST(Property, NotifiesThePeerOfChangesOnly) {
  Label label;
  CountingPeer peer;
  label.peer = &peer;
  label.Caption = u"Scanning";
  EXPECT_EQ(peer.changes, 1);
  label.Caption = u"Scanning";
  EXPECT_EQ(peer.changes, 1);
  label.Width = label.Width + 15;
  EXPECT_EQ(peer.changes, 2);
  EXPECT_EQ(label.Width, 15);
}

TEST(Property, AFormedValueIsFormedOnceWhenItIsRead) {
  static int formed = 0;
  const auto quote = [](const Text& part) {
    ++formed;
    return Concat(u"'", part, u"'");
  };
  CountingPeer peer;
  Label label;
  label.peer = &peer;
  label.Caption.Form(u"a", quote);
  label.Caption.Form(u"b", quote);
  EXPECT_EQ(peer.changes, 2);
  EXPECT_EQ(formed, 0);
  EXPECT_EQ(label.Caption, u"'b'");
  EXPECT_EQ(label.Caption.Get(), u"'b'");
  EXPECT_EQ(formed, 1);
  label.Caption.Form(u"c", quote);
  label.Caption = u"'c'";
  EXPECT_EQ(peer.changes, 3) << "the value stays";
  Label copy;
  label.Caption.Form(u"d", quote);
  copy.Caption = label.Caption;
  EXPECT_EQ(copy.Caption, u"'d'");
}

TEST(Property, IsAPlainValueWithoutAPeer) {
  Label first;
  Label second;
  first.Caption = u"one";
  second.Caption = first.Caption;
  EXPECT_EQ(second.Caption, Text(u"one"));
}

TEST(Event, RunsItsHandlerOrNothing) {
  Button button;
  button.Click();
  int clicks = 0;
  button.Click = [&clicks] { ++clicks; };
  button.Enabled = false;
  button.Visible = false;
  button.Click();
  EXPECT_EQ(clicks, 1);
}

TEST(CheckBox, AnotherValueRunsTheHandlerAndTheSameDoesNot) {
  CheckBox box;
  int clicks = 0;
  int seen = -1;
  box.Click = [&] {
    ++clicks;
    seen = box.Value;
  };
  box.Value = 1;
  EXPECT_EQ(clicks, 1);
  EXPECT_EQ(seen, 1);
  box.Value = 1;
  EXPECT_EQ(clicks, 1);
  box.Value = 0;
  EXPECT_EQ(clicks, 2);
}

TEST(CheckList, SettingATickRaisesItemCheckOnChange) {
  CheckList list;
  list.AddItem(u"Uncheck All");
  list.AddItem(u"Temporary Files");
  std::vector<int> checked;
  list.ItemCheck = [&checked](int row) { checked.push_back(row); };
  list.SetSelected(1, true);
  list.SetSelected(1, true);
  list.SetSelected(0, true);
  EXPECT_EQ(checked, (std::vector{1, 0}));
  list.SetList(0, u"Check All");
  EXPECT_EQ(checked, (std::vector{1, 0, 0}));
  EXPECT_TRUE(list.Selected(0)) << "a new text keeps the tick";
}

TEST(CheckList, ARowThatIsNotThereIsEmpty) {
  CheckList list;
  list.AddItem(u"only");
  EXPECT_EQ(list.List(1), u"");
  EXPECT_FALSE(list.Selected(-1));
  list.SetSelected(7, true);
  list.SetList(7, u"x");
  EXPECT_EQ(list.ListCount(), 1);
  list.Clear();
  EXPECT_EQ(list.ListCount(), 0);
  EXPECT_EQ(list.ListIndex, -1);
}

}  // namespace
}  // namespace tavix
