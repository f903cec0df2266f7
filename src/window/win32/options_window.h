#pragma once

#include "window/win32/dialog_window.h"

namespace tavix::win32 {

// The real options window, which shows frmPubOptions.
class OptionsWindow : public DialogWindow {
 public:
  OptionsWindow();

 protected:
  void Bind(WindowContext& context, BoxListener& listener, Bindings& bindings) override;
  void LayOut(const WidthOf& widthOf) override;
  Control& First() override;
};

}  // namespace tavix::win32
