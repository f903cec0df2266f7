#include "window/win32/dialog_label_binding.h"

#include "window/win32/caption_paint.h"
#include "window/win32/paint.h"

namespace tavix::win32 {
namespace {

Font LargerBold(const WindowContext& context) {
  LOGFONTW font{};
  GetObjectW(context.boldFont.Get(), sizeof font, &font);
  font.lfHeight = MulDiv(font.lfHeight, 5, 4);
  return Font(CreateFontIndirectW(&font));
}

}  // namespace

DialogLabelBinding::DialogLabelBinding(Label& model, WindowContext& context, int id, Look look)
    : LabelBinding(model, context, id), model_(model), look_(look) {
  if (look == Look::kTitle) title_ = LargerBold(context);
}

void DialogLabelBinding::OnDraw(const DRAWITEMSTRUCT& draw) {
  const Canvas canvas(draw.hDC, draw.rcItem);
  const Palette& colors = context_.colors;
  const TextView caption = model_.Caption.Get();
  FillArea(canvas.Get(), draw.rcItem, colors.ground);
  if (look_ == Look::kPlain) {
    WriteCaptionLeft(canvas.Get(), Window(), caption, draw.rcItem, context_.font.Get(), colors.text);
  } else if (look_ == Look::kTitle) {
    WriteText(canvas.Get(), caption, draw.rcItem, title_.Get(), colors.text,
              DT_LEFT | DT_TOP | DT_SINGLELINE);
  } else {
    WriteText(canvas.Get(), caption, draw.rcItem, context_.font.Get(), colors.faintText,
              look_ == Look::kNote ? DT_LEFT | DT_VCENTER | DT_SINGLELINE : DT_LEFT | DT_WORDBREAK);
  }
}

}  // namespace tavix::win32
