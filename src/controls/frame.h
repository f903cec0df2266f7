#pragma once

#include "controls/control.h"

namespace tavix {

// A titled box around a group of controls, or a whole page of controls.
class Frame : public Control {
 public:
  Property<Text> Caption{this};
};

}  // namespace tavix
