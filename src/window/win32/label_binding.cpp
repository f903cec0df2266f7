#include "window/win32/label_binding.h"

#include "window/win32/paint.h"

namespace tavix::win32 {

LabelBinding::LabelBinding(Label& model, WindowContext& context, int id, UINT format)
    : WindowBinding(model, context), model_(model), format_(format) {
  Create(id, L"STATIC", SS_OWNERDRAW, model.Caption.Get());
}

void LabelBinding::Show() { SetName(model_.Caption.Get()); }

void LabelBinding::DrawGround(HDC context, const RECT& area) {
  FillArea(context, area, context_.colors.panel);
}

void LabelBinding::OnDraw(const DRAWITEMSTRUCT& draw) {
  const Canvas canvas(draw.hDC, draw.rcItem);
  DrawGround(canvas.Get(), draw.rcItem);
  WriteText(canvas.Get(), model_.Caption.Get(), draw.rcItem, context_.font.Get(), TextColor(), format_);
}

void TitleLabelBinding::DrawGround(HDC context, const RECT& area) {
  FillArea(context, area, context_.colors.title);
  const RECT own = context_.Area(model_);
  const RECT title = context_.Area(title_);
  context_.skin->Draw(context, {title.left - own.left, title.top - own.top}, title_.Picture.Get());
}

}  // namespace tavix::win32
