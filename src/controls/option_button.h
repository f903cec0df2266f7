#pragma once

#include <span>

#include "controls/control.h"

namespace tavix {

// A radio button. At most one of its group is selected.
class OptionButton : public Control {
 public:
  Property<Text> Caption{this};
  Event<> Click;

  bool GetValue() const { return value_; }
  // Selecting a button deselects the others of its group and runs its click handler. Selecting a selected
  // button, or deselecting one, runs no handler.
  void SetValue(bool value);

  // Lets the value be read and assigned like the other properties.
  struct ValueProperty {
    OptionButton* button;
    operator bool() const { return button->GetValue(); }
    ValueProperty& operator=(bool value) {
      button->SetValue(value);
      return *this;
    }
  };
  ValueProperty Value{this};

  // Makes the buttons one group. They must stay at their addresses.
  static void Group(std::span<OptionButton> buttons);
  // Its group, this button included.
  std::span<const OptionButton> Members() const { return group_; }

 private:
  void Mark(bool value);

  bool value_ = false;
  std::span<OptionButton> group_;
};

}  // namespace tavix
