#include "controls/option_button.h"

#include <gtest/gtest.h>

#include <array>

namespace tavix {
namespace {

class OptionButtons : public testing::Test {
 protected:
  OptionButtons() {
    OptionButton::Group(buttons);
    for (size_t i = 0; i < buttons.size(); ++i) {
      buttons[i].Click = [this, i] { clicked.push_back(i); };
    }
  }

  std::array<OptionButton, 3> buttons;
  std::vector<size_t> clicked;
};

TEST_F(OptionButtons, SelectingOneTakesTheMarkFromTheOthers) {
  buttons[0].Value = true;
  buttons[2].Value = true;
  EXPECT_FALSE(buttons[0].Value);
  EXPECT_FALSE(buttons[1].Value);
  EXPECT_TRUE(buttons[2].Value);
}

TEST_F(OptionButtons, OnlyTheSelectedOneRunsItsHandler) {
  buttons[0].Value = true;
  buttons[2].Value = true;
  EXPECT_EQ(clicked, (std::vector<size_t>{0, 2}));
}

TEST_F(OptionButtons, HandlerSeesTheOthersWithoutTheMark) {
  buttons[0].Value = true;
  bool other = true;
  buttons[1].Click = [&] { other = buttons[0].Value; };
  buttons[1].Value = true;
  EXPECT_FALSE(other);
}

TEST_F(OptionButtons, SelectingTheSelectedOneRunsNothing) {
  buttons[1].Value = true;
  buttons[1].Value = true;
  EXPECT_EQ(clicked, std::vector<size_t>{1});
}

TEST_F(OptionButtons, TakingTheMarkAwayRunsNothing) {
  buttons[1].Value = true;
  buttons[1].Value = false;
  EXPECT_FALSE(buttons[1].Value);
  EXPECT_EQ(clicked, std::vector<size_t>{1});
}

TEST(OptionButton, InNoGroupStandsAlone) {
  OptionButton button;
  button.Value = true;
  EXPECT_TRUE(button.Value);
}

}  // namespace
}  // namespace tavix
