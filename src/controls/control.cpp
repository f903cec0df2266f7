#include "controls/control.h"

namespace tavix {

void CheckBox::SetValue(int value) {
  if (value_ == value) return;
  value_ = value;
  PropertyChanged();
  Click();
}

}  // namespace tavix
