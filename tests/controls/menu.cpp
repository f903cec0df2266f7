#include "controls/menu.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

TEST(Menu, KeepsItsEntriesInOrder) {
  MenuItem first, second;
  const Menu menu{&first, &second};
  EXPECT_EQ(menu.Items, (std::vector<MenuItem*>{&first, &second}));
}

TEST(MenuItem, DashAloneIsASeparator) {
  MenuItem item;
  item.Caption = u"-";
  EXPECT_TRUE(item.IsSeparator());
  item.Caption = u"- a";
  EXPECT_FALSE(item.IsSeparator());
  item.Caption = u"";
  EXPECT_FALSE(item.IsSeparator());
}

}  // namespace
}  // namespace tavix
