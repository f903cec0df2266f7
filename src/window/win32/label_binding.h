#pragma once

#include "window/win32/window_binding.h"

namespace tavix::win32 {

// A label of plain text. It lets the mouse through to what lies behind it.
class LabelBinding : public WindowBinding {
 public:
  // `ground` is what it stands on; `style` says how the text is aligned (SS_...).
  LabelBinding(Label& model, WindowContext& context, int id, COLORREF color, HBRUSH ground,
               DWORD style = SS_LEFT);
  HBRUSH OnColors(HDC context) override;

 protected:
  void Show() override;

 private:
  Label& model_;
  COLORREF color_;
  HBRUSH ground_;
};

}  // namespace tavix::win32
