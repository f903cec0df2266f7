#pragma once

#include "controls/control.h"

namespace tavix {

// A frame with a title around a group of controls, or around a page of them.
class Frame : public Control {
 public:
  Property<Text> Caption{this};
};

}  // namespace tavix
