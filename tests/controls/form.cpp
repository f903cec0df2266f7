#include "controls/form.h"

#include <gtest/gtest.h>

#include <array>

namespace tavix {
namespace {

class CountingPeer : public ControlPeer {
 public:
  void ModelChanged() override { ++changes; }
  int changes = 0;
};

TEST(FormTexts, NamesCaptionsArraysHeadersAndToolTips) {
  Button single;
  std::array<Button, 2> members;
  ListView list;
  std::vector<Text> names;
  for (const NamedText& text : FormTexts()
                                   .Add(u"single", single.Caption)
                                   .AddAll(u"members", members)
                                   .AddHeaders(u"list", list, 2)
                                   .AddToolTip(u"single", single)
                                   .Take()) {
    names.push_back(text.Name);
  }
  EXPECT_EQ(names, (std::vector<Text>{u"single", u"members(0)", u"members(1)", u"list.ColumnHeaders(1)",
                                      u"list.ColumnHeaders(2)", u"single.ToolTipText"}));
}

TEST(FormTexts, SettingATextSetsTheControl) {
  std::array<Button, 2> members;
  members[1].Caption = u"built in";
  const std::vector<NamedText> texts = FormTexts().AddAll(u"members", members).Take();
  EXPECT_EQ(texts[1].Get(), u"built in");
  texts[1].Set(u"new");
  EXPECT_EQ(members[1].Caption.Get(), u"new");
  EXPECT_EQ(members[0].Caption.Get(), u"");
}

TEST(FormTexts, SettingAHeaderTellsTheRealList) {
  ListView list;
  CountingPeer peer;
  list.peer = &peer;
  const std::vector<NamedText> texts = FormTexts().AddHeaders(u"list", list, 1).Take();
  texts[0].Set(u"Name");
  EXPECT_EQ(list.ColumnHeaders[0].Caption, u"Name");
  EXPECT_EQ(peer.changes, 1);
  texts[0].Set(u"Name");
  EXPECT_EQ(peer.changes, 1);
}

struct PlainForm : Form {
  TextView Name() const override { return u"plain"; }
  std::vector<NamedText> Texts() override { return {}; }
};

TEST(Form, LoadsOnceUntilItIsClosed) {
  PlainForm form;
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
