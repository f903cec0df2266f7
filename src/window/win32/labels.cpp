#include "window/win32/labels.h"

#include <algorithm>

#include "window/caption.h"
#include "window/win32/paint.h"

namespace tavix::win32 {

//--- Labels

LabelBinding::LabelBinding(Label& model, WindowContext& context, int id, const LabelStyle& style,
                           const PictureBox* below)
    : WindowBinding(model, context, CaptionName(model.Caption)), model_(model), style_(style), below_(below) {
  Create(id, L"STATIC", SS_OWNERDRAW | (style.mnemonic ? 0U : SS_NOPREFIX));
}

void LabelBinding::Paint(HDC canvas, const RECT& area, UINT) {
  const Text& caption = model_.Caption.Get();
  const COLORREF color = context_.colors.*style_.text;
  const HFONT font = (context_.*style_.font).Get();
  FillArea(canvas, area, context_.colors.*style_.back);
  if (below_ != nullptr) {
    const RECT own = context_.Area(model_), picture = context_.Area(*below_);
    context_.skin->Draw(canvas, {picture.left - own.left, picture.top - own.top}, below_->Picture.Get());
  }
  if (style_.mnemonic) {
    WriteCaption(canvas, caption, area, font, color, DT_LEFT, HidesMnemonics());
  } else {
    WriteText(canvas, caption, area, font, color, style_.format);
  }
}

//--- Pictures

ImageBinding::ImageBinding(PictureBox& model, WindowContext& context, int id)
    : WindowBinding(model, context), model_(model) {
  Create(id, L"STATIC", SS_OWNERDRAW);
}

void ImageBinding::Show() {
  if (context_.skin->Has(model_.Picture.Get())) picture_ = model_.Picture.Get();
  Redraw();
}

void ImageBinding::Paint(HDC canvas, const RECT& area, UINT) {
  FillArea(canvas, area, context_.colors.background);
  context_.skin->Draw(canvas, {area.left, area.top}, picture_);
}

//--- Groups

GroupBinding::GroupBinding(Frame& model, WindowContext& context, int id)
    : PaintedBinding(model, context, CaptionName(model.Caption)), model_(model) {
  Create(id, L"BUTTON", BS_GROUPBOX | WS_GROUP);
}

void GroupBinding::Paint(HDC canvas, const RECT& area, UINT) {
  const HFONT font = context_.boldFont.Get();
  FillArea(canvas, area, context_.colors.background);
  WriteCaption(canvas, model_.Caption.Get(), area, font, context_.colors.text, DT_LEFT, HidesMnemonics());
  SIZE words{};
  const Text caption = PlainCaption(model_.Caption.Get());
  const Selection bold(canvas, font);
  GetTextExtentPoint32W(canvas, reinterpret_cast<const wchar_t*>(caption.data()),
                        static_cast<int>(caption.size()), &words);
  const LONG middle = (area.top + area.bottom) / 2;
  FillArea(canvas,
           {area.left + words.cx + context_.Pixels(120), middle, area.right, middle + context_.Line()},
           context_.colors.line);
}

//--- Progress bar

namespace {
bool IsSeen(const Label& fill) { return fill.Visible && fill.Width > 0; }
}  // namespace

ProgressBinding::ProgressBinding(Label& bar, WindowContext& context, int id, Label& fill)
    : WindowBinding(bar, context, {[&fill] { return IsSeen(fill) ? fill.Caption.Get() : Text(); }}),
      bar_(bar),
      fill_(fill),
      fillChanges_(fill, context.changes, [this] { Apply(); }) {
  Create(id, L"STATIC", SS_OWNERDRAW);
}

void ProgressBinding::Detach() {
  fillChanges_.Detach();
  WindowBinding::Detach();
}

void ProgressBinding::Paint(HDC canvas, const RECT& area, UINT) {
  const Palette& colors = context_.colors;
  RECT filled = area, empty = area;
  filled.right = empty.left =
      IsSeen(fill_) ? std::min<LONG>(area.right, context_.Pixels(fill_.Width)) : area.left;
  FillArea(canvas, empty, colors.background);
  FillArea(canvas, filled, colors.fill);
  DrawOutline(canvas, area, bar_.BorderStyle == 1 ? colors.buttonLine : colors.line);
  const Text& caption = fill_.Caption.Get();
  if (context_.Pixels(TextWidth(context_, caption)) + 4 * context_.Line() > filled.right - filled.left)
    return;
  WriteText(canvas, caption, filled, context_.font.Get(), colors.fillText,
            DT_CENTER | DT_VCENTER | DT_SINGLELINE);
}

}  // namespace tavix::win32
