#pragma once

#include <initializer_list>
#include <vector>

#include "controls/control.h"

namespace tavix {

// An entry of a menu. A single dash as caption makes it a separator.
class MenuItem : public Control {
 public:
  Property<Text> Caption{this};
  Event<> Click;

  bool IsSeparator() const { return Caption == u"-"; }
};

// A menu that pops up at the mouse.
class Menu : public Control {
 public:
  Menu(std::initializer_list<MenuItem*> items) : Items(items) {}

  const std::vector<MenuItem*> Items;  // top to bottom, not owned

  Event<> Popup;  // shows the menu at the mouse and runs the click handler of the entry chosen
};

}  // namespace tavix
