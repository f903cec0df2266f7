#include "window/win32/title_link.h"

#include "window/win32/paint.h"

namespace tavix::win32 {

TitleLinkBinding::TitleLinkBinding(Label& model, WindowContext& context, int id, const PictureBox& title,
                                   TitleName name)
    : LinkBinding(model, context, id), model_(model), title_(title), name_(name) {}

void TitleLinkBinding::Paint(HDC canvas, const RECT& area, UINT state) {
  FillArea(canvas, area, context_.colors.title);
  const RECT own = context_.Area(model_), title = context_.Area(title_);
  context_.skin->Draw(canvas, {title.left - own.left, title.top - own.top}, title_.Picture.Get());
  const bool focused = (state & ODS_FOCUS) != 0;
  if (name_ == TitleName::kMissing && (focused || IsHot())) {
    WriteText(canvas, model_.Caption.Get(), area, context_.linkFont.Get(), context_.colors.titleText,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS);
  }
  if (focused) DrawOutline(canvas, area, context_.colors.titleText);
}

}  // namespace tavix::win32
