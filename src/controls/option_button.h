#pragma once

#include <span>

#include "controls/control.h"

namespace tavix {

// One of a group of buttons of which at most one is selected. A button in no group stands alone.
class OptionButton : public Control {
 public:
  Property<Text> Caption{this};
  Event<> Click;

  bool GetValue() const { return value_; }
  // Selecting a button takes the mark from the others of its group and runs its click handler; selecting the
  // selected one, and taking the mark away, runs nothing.
  void SetValue(bool value);

  // Reads and assigns like a truth value, as the other properties do.
  struct ValueProperty {
    OptionButton* button;
    operator bool() const { return button->GetValue(); }
    ValueProperty& operator=(bool value) {
      button->SetValue(value);
      return *this;
    }
  };
  ValueProperty Value{this};

  // Makes the buttons one group; they outlive it.
  static void Group(std::span<OptionButton> buttons);

 private:
  void Mark(bool value);

  bool value_ = false;
  std::span<OptionButton> group_;
};

}  // namespace tavix
