#include "window/win32/check_box_binding.h"

#include "window/win32/palette.h"

namespace tavix::win32 {

// The box doesn't turn by itself: the model does, and the box follows.
CheckBoxBinding::CheckBoxBinding(CheckBox& model, WindowContext& context, int id)
    : WindowBinding(model, context), model_(model) {
  Create(id, L"BUTTON", BS_CHECKBOX | WS_TABSTOP);
}

void CheckBoxBinding::OnCommand(int code) {
  if (code == BN_CLICKED) model_.SetValue(model_.GetValue() == 0 ? 1 : 0);
}

HBRUSH CheckBoxBinding::OnColors(HDC context) {
  SetTextColor(context, kTextColor);
  SetBkMode(context, TRANSPARENT);
  return context_.ground.Get();
}

void CheckBoxBinding::Show() {
  SetName(model_.Caption.Get());
  const WPARAM mark = model_.GetValue() != 0 ? BST_CHECKED : BST_UNCHECKED;
  if (static_cast<WPARAM>(Send(BM_GETCHECK)) != mark) Send(BM_SETCHECK, mark);
}

}  // namespace tavix::win32
