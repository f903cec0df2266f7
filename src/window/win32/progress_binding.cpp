#include "window/win32/progress_binding.h"

#include <algorithm>

#include "window/win32/paint.h"

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
  Redraw();
}

void ProgressBinding::OnDraw(const DRAWITEMSTRUCT& draw) {
  const Canvas canvas(draw.hDC, draw.rcItem);
  const Palette& colors = context_.colors;
  const RECT area = draw.rcItem;
  FillArea(canvas.Get(), area, colors.ground);
  if (fill_.Visible) {
    RECT filled = area;
    filled.right = std::min<LONG>(area.right, context_.Pixels(fill_.Width));
    FillArea(canvas.Get(), filled, colors.fill);
  }
  FrameArea(canvas.Get(), area, frame_.BorderStyle == 1 ? colors.buttonLine : colors.line);
  if (fill_.Visible) {
    WriteText(canvas.Get(), fill_.Caption.Get(), area, context_.font.Get(), colors.text,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE);
  }
}

}  // namespace tavix::win32
