#include "controls/form.h"

#include <gtest/gtest.h>

#include <array>
#include <utility>
#include <vector>

#include "controls/list_view.h"
#include "controls/menu.h"

namespace tavix {
namespace {

class CountingPeer : public ControlPeer {
 public:
  void ModelChanged() override { ++changes; }
  int changes = 0;
};

class SmallForm : public Form {
 public:
  SmallForm() : Form(u"small") {
    Say(u"single", single.Caption, u"One");
    SayAll(u"members", members, {u"Two", u"Three"});
    SayColumns(u"list", list, {{u"Name", 300}, {u"Size", 200}});
    SayToolTip(u"single", single, u"Tip");
    SayMenu(u"entry", entry, u"Open");
  }

  Button single;
  std::array<Button, 2> members;
  ListView list;
  MenuItem entry;
};

using Words = std::vector<std::pair<Text, Text>>;

Words WordsOf(const std::vector<NamedText>& texts) {
  Words words;
  for (const NamedText& text : texts) words.emplace_back(text.Name, text.Get());
  return words;
}

TEST(FormTexts, NamesCaptionsArraysHeadersAndToolTips) {
  const SmallForm form;
  EXPECT_EQ(WordsOf(form.Texts()), (Words{{u"single", u"One"},
                                          {u"members(0)", u"Two"},
                                          {u"members(1)", u"Three"},
                                          {u"list.ColumnHeaders(1)", u"Name"},
                                          {u"list.ColumnHeaders(2)", u"Size"},
                                          {u"single.ToolTipText", u"Tip"}}));
  EXPECT_EQ(WordsOf(form.Menus()), (Words{{u"entry", u"Open"}}));
}

TEST(FormTexts, OnlyTheNamedColumnGetsAWidth) {
  const SmallForm form;
  std::vector<int> widths;
  for (const ListView::ColumnHeader& column : form.list.ColumnHeaders) widths.push_back(column.Width);
  EXPECT_EQ(widths, (std::vector<int>{300, 200, 0, 0, 0}));
}

TEST(FormTexts, SettingATextSetsTheControl) {
  SmallForm form;
  for (const NamedText& text : form.Texts()) text.Set(Concat(u"new ", text.Name));
  EXPECT_EQ(form.single.Caption.Get(), u"new single");
  EXPECT_EQ(form.members[0].Caption.Get(), u"new members(0)");
  EXPECT_EQ(form.members[1].Caption.Get(), u"new members(1)");
  EXPECT_EQ(form.list.ColumnHeaders[1].Caption, u"new list.ColumnHeaders(2)");
  EXPECT_EQ(form.single.ToolTipText.Get(), u"new single.ToolTipText");
  EXPECT_EQ(form.entry.Caption.Get(), u"Open");
  form.Menus()[0].Set(u"new");
  EXPECT_EQ(form.entry.Caption.Get(), u"new");
}

TEST(FormTexts, SettingAHeaderNotifiesTheRealList) {
  SmallForm form;
  CountingPeer peer;
  form.list.peer = &peer;
  const NamedText& first = form.Texts()[3];
  first.Set(u"Title");
  EXPECT_EQ(form.list.ColumnHeaders[0].Caption, u"Title");
  EXPECT_EQ(peer.changes, 1);
  first.Set(u"Title");
  EXPECT_EQ(peer.changes, 1);
}

TEST(Form, LoadsOnceUntilItIsClosed) {
  SmallForm form;
  int loads = 0;
  form.Load = [&loads] { ++loads; };
  form.LoadOnce();
  form.LoadOnce();
  EXPECT_EQ(loads, 1);
  EXPECT_TRUE(form.Loaded);
  form.Loaded = false;
  form.LoadOnce();
  EXPECT_EQ(loads, 2);
}

}  // namespace
}  // namespace tavix
