#include "window/win32/label_binding.h"

namespace tavix::win32 {

LabelBinding::LabelBinding(Label& model, WindowContext& context, int id, COLORREF color, HBRUSH ground,
                           DWORD style)
    : WindowBinding(model, context), model_(model), color_(color), ground_(ground) {
  Create(id, L"STATIC", SS_NOPREFIX | style);
}

HBRUSH LabelBinding::OnColors(HDC context) {
  SetTextColor(context, color_);
  SetBkMode(context, TRANSPARENT);
  return ground_;
}

void LabelBinding::Show() { SetName(model_.Caption.Get()); }

}  // namespace tavix::win32
