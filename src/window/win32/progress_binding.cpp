#include "window/win32/progress_binding.h"

#include <algorithm>

#include "window/win32/paint.h"
#include "window/win32/palette.h"

namespace tavix::win32 {

ProgressBinding::ProgressBinding(Label& frame, Label& fill, WindowContext& context, int id)
    : WindowBinding(frame, context), frame_(frame), fill_(fill), fillBinding_(fill, *this, context.changes) {
  Create(id, L"STATIC", SS_OWNERDRAW);
}

void ProgressBinding::Detach() {
  fillBinding_.Detach();
  WindowBinding::Detach();
}

void ProgressBinding::Show() {
  SetName(fill_.Visible ? fill_.Caption.Get() : Text());
  InvalidateRect(Window(), nullptr, FALSE);
}

void ProgressBinding::OnDraw(const DRAWITEMSTRUCT& draw) {
  RECT area = draw.rcItem;
  FillArea(draw.hDC, area, kGroundColor);
  if (fill_.Visible) {
    RECT filled = area;
    filled.right = std::min<LONG>(area.right, context_.Pixels(fill_.Width));
    FillArea(draw.hDC, filled, kFillColor);
  }
  if (frame_.BorderStyle == 1) FrameArea(draw.hDC, area, kLineColor);
  if (fill_.Visible) {
    WriteText(draw.hDC, fill_.Caption.Get(), area, context_.font.Get(), kTextColor,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE);
  }
}

}  // namespace tavix::win32
