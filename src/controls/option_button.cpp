#include "controls/option_button.h"

namespace tavix {

void OptionButton::Mark(bool value) {
  if (value_ == value) return;
  value_ = value;
  PropertyChanged();
}

void OptionButton::SetValue(bool value) {
  if (value_ == value) return;
  if (value) {
    for (OptionButton& other : group_) {
      if (&other != this) other.Mark(false);
    }
  }
  Mark(value);
  if (value) Click();
}

void OptionButton::Group(std::span<OptionButton> buttons) {
  for (OptionButton& button : buttons) button.group_ = buttons;
}

}  // namespace tavix
