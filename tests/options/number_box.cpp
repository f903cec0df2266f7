#include "options/number_box.h"

#include "options/options_test.h"

namespace tavix::mdlPubSelf {
namespace {

struct NumberCase {
  const char* name;
  TextBox* box;
  int16_t page;
  const char16_t* smallest;
  const char16_t* tooSmall;
  const char16_t* ending;
};

class EachNumberBox : public OptionsTest, public testing::WithParamInterface<NumberCase> {
 protected:
  EachNumberBox() { Open(GetParam().page); }
  TextBox& box = *GetParam().box;

  // Whether the box gives up the focus with this text.
  bool Passes(TextView text) {
    const size_t before = Messages().size();
    box.Text = Text(text);
    Leave(box);
    return frmPubOptions.ActiveControl != &box && Messages().size() == before;
  }
};

TEST_P(EachNumberBox, SmallestNumberPasses) {
  Type(box, GetParam().smallest);
  Leave(box);
  EXPECT_EQ(box.Text.Get(), GetParam().smallest);
  EXPECT_TRUE(Messages().empty());
  EXPECT_NE(frmPubOptions.ActiveControl, &box);
}

TEST_P(EachNumberBox, NumberBelowIsRefusedAndKeepsTheFocus) {
  Type(box, GetParam().tooSmall);
  Leave(box);
  const Text text = Concat(GetMessageText(u"LBOUND_ERR"), GetParam().ending);
  EXPECT_EQ(Messages(), std::vector{Information(text)});
  EXPECT_EQ(frmPubOptions.ActiveControl, &box);
  EXPECT_EQ(box.Text.Get(), GetParam().tooSmall);
}

TEST_P(EachNumberBox, EmptyBoxCountsAsZero) {
  EXPECT_FALSE(Passes(u""));
  EXPECT_EQ(Messages()[0].first, Concat(GetMessageText(u"LBOUND_ERR"), GetParam().ending));
}

TEST_P(EachNumberBox, WhatIsNoNumberOf16BitsCountsAsZero) {
  for (const TextView text : {u"abc", u"1000x", u" ", u"32768", u"99999999999", u"-70", u"\u0001"}) {
    EXPECT_FALSE(Passes(text)) << Narrow(text);
  }
  EXPECT_TRUE(Passes(u"32767"));
}

TEST_P(EachNumberBox, LeaveNothingButDigitsAndBackspaceThrough) {
  for (int key = 0; key <= 0x100; ++key) {
    int pressed = key;
    box.KeyPress(pressed);
    const bool taken = (key >= '0' && key <= '9') || key == 8;
    EXPECT_EQ(pressed, taken ? key : 0) << key;
  }
}

TEST_P(EachNumberBox, GettingTheFocusSelectsAllTheText) {
  box.Text = u"1234";
  box.GotFocus();
  EXPECT_EQ(box.SelStart, 0);
  EXPECT_EQ(box.SelLength, 4);
}

TEST_P(EachNumberBox, RefusedNumberBringsItsPageBack) {
  box.Text = u"0";
  frmPubOptions.trv.NodeClick(*frmPubOptions.trv.NodeAt(1));
  Leave(box, frmPubOptions.trv);
  EXPECT_EQ(frmPubOptions.trv.SelectedItem, frmPubOptions.trv.NodeAt(GetParam().page));
  EXPECT_EQ(frmPubOptions.ActiveControl, &box);
}

INSTANTIATE_TEST_SUITE_P(
    Options, EachNumberBox,
    testing::Values(NumberCase{"LeastSize", &frmPubOptions.txtDFSS, 3, u"1", u"0", u" 0."},
                    NumberCase{"LastAccessedFile", &frmPubOptions.txtOO[0], 5, u"60", u"59", u" 59."},
                    NumberCase{"LastAccessedPrefetch", &frmPubOptions.txtOO[1], 5, u"6", u"5", u" 5."}),
    [](const auto& test) { return test.param.name; });

}  // namespace
}  // namespace tavix::mdlPubSelf
