#include "controls/text_box.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

TEST(TextBox, SelectsAllItsText) {
  TextBox box;
  box.Text = u"abc";
  box.SelStart = 2;
  box.SelectAll();
  EXPECT_EQ(box.SelStart, 0);
  EXPECT_EQ(box.SelLength, 3);
}

TEST(TextBox, KeyPressHandlerCanSwallowTheKey) {
  TextBox box;
  box.KeyPress = [](int& key) {
    if (key == u'x') key = 0;
  };
  int swallowed = u'x';
  int taken = u'1';
  box.KeyPress(swallowed);
  box.KeyPress(taken);
  EXPECT_EQ(swallowed, 0);
  EXPECT_EQ(taken, u'1');
}

}  // namespace
}  // namespace tavix
