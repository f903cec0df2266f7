#include "window/win32/picture_binding.h"

#include "window/win32/paint.h"

namespace tavix::win32 {

const Text& PictureBinding::NameOf(const PictureBox& model) {
  const Text& spoken = model.AccessibleName.Get();
  return spoken.empty() ? model.ToolTipText.Get() : spoken;
}

void PictureBinding::Show() {
  SetName(NameOf(model_));
  if (context_.skin->Has(model_.Picture.Get())) picture_ = model_.Picture.Get();
  Redraw();
}

void PictureBinding::OnPress() {
  model_.MouseUp(kLeftButton);
  model_.Click();
}

std::optional<LRESULT> PictureBinding::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_RBUTTONUP) model_.MouseUp(kRightButton);
  return PushBinding::OnMessage(message, wide, longer);
}

void PictureBinding::Paint(HDC context, const RECT& area, UINT state) {
  FillArea(context, area, ground_);
  context_.skin->Draw(context, {area.left, area.top}, picture_);
  RECT frame = area;
  const int line = context_.Line();
  if (model_.BorderStyle == 1) {
    for (int i = 0; i < 2 * line; ++i) {
      FrameArea(context, frame, context_.colors.accent);
      InflateRect(&frame, -1, -1);
    }
    const RECT bar{area.left, area.top, area.left + 4 * line, area.bottom};
    FillArea(context, bar, context_.colors.accent);
  }
  if ((state & ODS_FOCUS) == 0) return;
  InflateRect(&frame, -line, -line);
  SetTextColor(context, context_.colors.text);
  SetBkColor(context, ground_);
  DrawFocusRect(context, &frame);
}

}  // namespace tavix::win32
