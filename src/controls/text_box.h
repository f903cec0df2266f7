#pragma once

#include "controls/control.h"

namespace tavix {

// A one-line text box. Setting its text by the program raises no event.
class TextBox : public Control {
 public:
  Property<tavix::Text> Text{this};
  Property<int> SelStart{this, 0};  // the first selected character, from 0
  Property<int> SelLength{this, 0};
  Property<Color> BackColor{this, kWindowBackground};

  Event<> GotFocus;
  // Another control has the focus, and the form's ActiveControl names it. A handler can take the focus back
  // by setting ActiveControl; then the click or key that moved it has no effect.
  Event<> LostFocus;
  Event<int&> KeyPress;  // the character about to be typed; the handler may replace it, 0 drops it

  void SelectAll() {
    SelStart = 0;
    SelLength = static_cast<int>(Text.Get().size());
  }
};

}  // namespace tavix
