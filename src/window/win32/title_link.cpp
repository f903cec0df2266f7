#include "window/win32/title_link.h"

#include "window/win32/paint.h"

namespace tavix::win32 {

TitleLinkBinding::TitleLinkBinding(Label& model, WindowContext& context, int id, const PictureBox& title)
    : LinkBinding(model, context, id), model_(model), title_(title) {}

void TitleLinkBinding::Paint(HDC canvas, const RECT& area, UINT state) {
  FillArea(canvas, area, context_.colors.title);
  const RECT own = context_.Area(model_), title = context_.Area(title_);
  context_.skin->Draw(canvas, {title.left - own.left, title.top - own.top}, title_.Picture.Get());
  if ((state & ODS_FOCUS) != 0) DrawOutline(canvas, area, context_.colors.titleText);
}

}  // namespace tavix::win32
