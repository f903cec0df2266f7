// clang-format off
#include "window/win32/option_button_binding.h"
#include <commctrl.h>
// clang-format on

#include "window/win32/caption_paint.h"
#include "window/win32/paint.h"
#include "window/win32/tick_images.h"

namespace tavix::win32 {
namespace {

constexpr int kRing = 195;  // twips across

// Filled circles, drawn larger and made small again, so that their edges are smooth.
class Rings {
 public:
  Rings(HDC screen, int size, COLORREF ground)
      : size_(size),
        memory_(CreateCompatibleDC(screen)),
        bitmap_(Make(screen)),
        selected_(memory_.Get(), bitmap_.Get()) {
    FillArea(memory_.Get(), {0, 0, size * kFiner, size * kFiner}, ground);
  }
  // `inset` in pixels of the screen.
  void Fill(COLORREF color, double inset) const {
    const Selection pen(memory_.Get(), GetStockObject(NULL_PEN));
    const Selection brush(memory_.Get(), GetStockObject(DC_BRUSH));
    SetDCBrushColor(memory_.Get(), color);
    const int from = static_cast<int>(inset * kFiner);
    const int to = size_ * kFiner - from + 1;
    Ellipse(memory_.Get(), from, from, to, to);
  }
  void Show(HDC screen, POINT corner) const {
    SetStretchBltMode(screen, HALFTONE);
    SetBrushOrgEx(screen, 0, 0, nullptr);
    StretchBlt(screen, corner.x, corner.y, size_, size_, memory_.Get(), 0, 0, size_ * kFiner, size_ * kFiner,
               SRCCOPY);
  }

 private:
  static constexpr int kFiner = 8;
  Bitmap Make(HDC screen) const {
    return Bitmap(CreateCompatibleBitmap(screen, size_ * kFiner, size_ * kFiner));
  }
  int size_;
  MemoryContext memory_;
  Bitmap bitmap_;
  Selection selected_;
};

void DrawRing(HDC screen, const WindowContext& context, const RECT& area, bool marked, bool enabled) {
  const Palette& colors = context.colors;
  const int size = context.Pixels(kRing);
  const double pixel = context.dpi / 96.0;
  const Rings rings(screen, size, colors.ground);
  const COLORREF strong = enabled ? colors.accent : colors.faintText;
  rings.Fill(marked ? strong : enabled ? colors.buttonLine : colors.line, 0);
  if (!marked) rings.Fill(enabled ? colors.panel : colors.ground, pixel);
  if (marked) rings.Fill(colors.accentText, 4 * pixel);
  rings.Show(screen, {area.left + (TickWidth(context) - size) / 2, (area.top + area.bottom - size) / 2});
}

}  // namespace

OptionButtonBinding::OptionButtonBinding(OptionButton& model, WindowContext& context, int id, bool first)
    : WindowBinding(model, context), model_(model) {
  Create(id, L"BUTTON", BS_AUTORADIOBUTTON | (first ? WS_TABSTOP | WS_GROUP : 0U));
}

void OptionButtonBinding::OnCommand(int code) {
  if (code == BN_CLICKED) Press();
}

void OptionButtonBinding::Show() {
  SetName(model_.Caption.Get());
  const WPARAM mark = model_.GetValue() ? BST_CHECKED : BST_UNCHECKED;
  if (static_cast<WPARAM>(Send(BM_GETCHECK)) != mark) Send(BM_SETCHECK, mark);
}

std::optional<LRESULT> OptionButtonBinding::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_PAINT) return Paint();
  if (message == WM_ERASEBKGND) return TRUE;
  const std::optional<LRESULT> done = WindowBinding::OnMessage(message, wide, longer);
  // The system's own button would choose itself.
  if (message == WM_SETFOCUS) return Redraw(), 0;
  if (!PaintsItself(message)) return done;
  const LRESULT result = PassOn(message, wide, longer);
  RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  return result;
}

LRESULT OptionButtonBinding::Paint() {
  PAINTSTRUCT paint;
  const HDC screen = BeginPaint(Window(), &paint);
  RECT area;
  GetClientRect(Window(), &area);
  {
    const Canvas canvas(screen, area);
    FillArea(canvas.Get(), area, context_.colors.ground);
    DrawRing(canvas.Get(), context_, area, model_.GetValue(), IsWindowEnabled(Window()) != FALSE);
    PaintChoiceCaption(canvas.Get(), context_, {Window(), area, model_.Caption.Get()});
  }
  EndPaint(Window(), &paint);
  return 0;
}

}  // namespace tavix::win32
