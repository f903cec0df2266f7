#pragma once

#include <initializer_list>
#include <vector>

#include "controls/control.h"

namespace tavix {

// An entry of a menu. With the caption "-" it is a separator.
class MenuItem : public Control {
 public:
  Property<Text> Caption{this};
  Event<> Click;

  bool IsSeparator() const { return Caption == u"-"; }
};

// A pop-up menu.
class Menu : public Control {
 public:
  Menu(std::initializer_list<MenuItem*> items) : Items(items) {}

  const std::vector<MenuItem*> Items;  // top to bottom, not owned

  Event<> Popup;  // command: shows the menu at the mouse and clicks the entry that the user chooses
};

}  // namespace tavix
