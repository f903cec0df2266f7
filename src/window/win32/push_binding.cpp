#include "window/win32/push_binding.h"

#include <utility>

#include "window/win32/paint.h"

namespace tavix::win32 {
namespace {

bool IsEnter(LPARAM longer) {
  const auto* const message = reinterpret_cast<const MSG*>(longer);
  return message != nullptr && message->message == WM_KEYDOWN && message->wParam == VK_RETURN;
}

}  // namespace

void PushBinding::OnCommand(int code) {
  // The second of two quick presses comes as the other code.
  if (code == BN_CLICKED || code == BN_DOUBLECLICKED) OnPress();
}

void PushBinding::OnDraw(const DRAWITEMSTRUCT& draw) {
  const Canvas canvas(draw.hDC, draw.rcItem);
  Paint(canvas.Get(), draw.rcItem, draw.itemState);
}

void PushBinding::Heat(bool hot) {
  if (std::exchange(hot_, hot) == hot) return;
  Redraw();
  TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, Window(), 0};
  if (hot) TrackMouseEvent(&track);
}

std::optional<LRESULT> PushBinding::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_ERASEBKGND) return TRUE;
  if (message == WM_MOUSEMOVE || message == WM_MOUSELEAVE) Heat(message == WM_MOUSEMOVE);
  if (message == WM_GETDLGCODE && IsEnter(longer)) return DLGC_BUTTON | DLGC_WANTMESSAGE;
  if (message == WM_KEYDOWN && wide == VK_RETURN) {
    OnPress();
    return 0;
  }
  return WindowBinding::OnMessage(message, wide, longer);
}

void ButtonBinding::Paint(HDC context, const RECT& area, UINT state) {
  const ButtonLook look = LookOf(context_.colors, state, accented_, IsHot());
  DrawButtonFace(context, area, look, state, context_.Line());
  WriteCaption(context, model_.Caption.Get(), area, (accented_ ? context_.boldFont : context_.font).Get(),
               look.text, state);
}

void LinkBinding::Paint(HDC context, const RECT& area, UINT state) {
  FillArea(context, area, context_.colors.panel);
  WriteText(context, model_.Caption.Get(), area, context_.linkFont.Get(), context_.colors.link,
            DT_LEFT | DT_TOP | DT_SINGLELINE);
  if ((state & ODS_FOCUS) != 0) FrameArea(context, area, context_.colors.link);
}

std::optional<LRESULT> LinkBinding::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_SETCURSOR && LOWORD(longer) == HTCLIENT) {
    SetCursor(LoadCursorW(nullptr, IDC_HAND));
    return TRUE;
  }
  return PushBinding::OnMessage(message, wide, longer);
}

}  // namespace tavix::win32
