#include "window/win32/check_box_binding.h"

#include "window/win32/paint.h"
#include "window/win32/tick_images.h"

namespace tavix::win32 {
namespace {

// Behind these the control of the system has painted itself without being asked.
bool Repaints(UINT message) {
  constexpr UINT kMessages[] = {BM_SETCHECK, BM_SETSTATE, WM_SETFOCUS,     WM_KILLFOCUS,
                                WM_ENABLE,   WM_SETTEXT,  WM_UPDATEUISTATE};
  for (const UINT repainting : kMessages) {
    if (message == repainting) return true;
  }
  return false;
}

}  // namespace

// The box doesn't turn by itself: the model does, and the box follows.
CheckBoxBinding::CheckBoxBinding(CheckBox& model, WindowContext& context, int id)
    : WindowBinding(model, context), model_(model) {
  Create(id, L"BUTTON", BS_CHECKBOX | WS_TABSTOP, model.Caption.Get());
}

void CheckBoxBinding::OnCommand(int code) {
  if (code == BN_CLICKED) model_.SetValue(model_.GetValue() == 0 ? 1 : 0);
}

HBRUSH CheckBoxBinding::OnColors(HDC context) {
  SetBkMode(context, TRANSPARENT);
  return context_.ground.Get();
}

void CheckBoxBinding::Show() {
  SetName(model_.Caption.Get());
  const WPARAM mark = model_.GetValue() != 0 ? BST_CHECKED : BST_UNCHECKED;
  if (static_cast<WPARAM>(Send(BM_GETCHECK)) != mark) Send(BM_SETCHECK, mark);
}

std::optional<LRESULT> CheckBoxBinding::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_PAINT) return Paint();
  if (message == WM_ERASEBKGND) return TRUE;
  if (!Repaints(message)) return WindowBinding::OnMessage(message, wide, longer);
  WindowBinding::OnMessage(message, wide, longer);
  const LRESULT result = PassOn(message, wide, longer);
  RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  return result;
}

LRESULT CheckBoxBinding::Paint() {
  PAINTSTRUCT paint;
  const HDC screen = BeginPaint(Window(), &paint);
  RECT area;
  GetClientRect(Window(), &area);
  {
    const Canvas canvas(screen, area);
    const bool enabled = IsWindowEnabled(Window()) != FALSE;
    FillArea(canvas.Get(), area, context_.colors.ground);
    DrawTick(canvas.Get(), context_, area, model_.GetValue() != 0 ? Tick::kWhole : Tick::kNone, enabled);
    RECT text = area;
    text.left += TickWidth(context_) + context_.Pixels(60);
    WriteText(canvas.Get(), model_.Caption.Get(), text, context_.font.Get(),
              enabled ? context_.colors.text : context_.colors.faintText,
              DT_LEFT | DT_VCENTER | DT_SINGLELINE);
    text.left -= context_.Pixels(30);
    InflateRect(&text, 0, -context_.Pixels(45));
    if (GetFocus() == Window()) FrameArea(canvas.Get(), text, context_.colors.accent);
  }
  EndPaint(Window(), &paint);
  return 0;
}

}  // namespace tavix::win32
