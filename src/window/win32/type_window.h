#pragma once

#include "window/win32/dialog_window.h"

namespace tavix::win32 {

// The real window that asks for a junk type, which shows frmPubType.
class TypeWindow : public DialogWindow {
 public:
  TypeWindow();

 protected:
  void Bind(WindowContext& context, BoxListener& listener, Bindings& bindings) override;
  void LayOut(const WidthOf& widthOf) override;
  Control& First() override;
};

}  // namespace tavix::win32
