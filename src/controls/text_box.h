#pragma once

#include "controls/control.h"

namespace tavix {

// A line of text to edit. Setting the text by the program raises nothing.
class TextBox : public Control {
 public:
  Property<tavix::Text> Text{this};
  Property<int> SelStart{this, 0};  // first character selected, from 0
  Property<int> SelLength{this, 0};
  Property<Color> BackColor{this, kWindowBackground};

  Event<> GotFocus;
  // Another control has the focus, and the form's ActiveControl names it. A handler that takes the focus back
  // there also keeps the click or key that moved it from having its effect.
  Event<> LostFocus;
  Event<int&> KeyPress;  // the character about to be typed; a handler that sets it to 0 swallows it

  void SelectAll() {
    SelStart = 0;
    SelLength = static_cast<int>(Text.Get().size());
  }
};

}  // namespace tavix
