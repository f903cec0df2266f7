#include "window/win32/image_binding.h"

#include "window/win32/paint.h"

namespace tavix::win32 {

void ImageBinding::Show() {
  if (context_.skin->Has(model_.Picture.Get())) picture_ = model_.Picture.Get();
  Redraw();
}

void ImageBinding::OnDraw(const DRAWITEMSTRUCT& draw) {
  const Canvas canvas(draw.hDC, draw.rcItem);
  FillArea(canvas.Get(), draw.rcItem, context_.colors.ground);
  context_.skin->Draw(canvas.Get(), {draw.rcItem.left, draw.rcItem.top}, picture_);
}

}  // namespace tavix::win32
