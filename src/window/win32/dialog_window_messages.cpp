#include "window/win32/dialog_window.h"

#include <utility>

#include "window/win32/option_button_binding.h"
#include "window/win32/paint.h"

namespace tavix::win32 {

LRESULT CALLBACK DialogWindow::Procedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_NCCREATE) {
    auto* const made = static_cast<DialogWindow*>(reinterpret_cast<CREATESTRUCTW*>(longer)->lpCreateParams);
    made->context_->window = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(made));
  }
  auto* const dialog = reinterpret_cast<DialogWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  return dialog != nullptr ? dialog->OnMessage(message, wide, longer)
                           : DefWindowProcW(window, message, wide, longer);
}

LRESULT DialogWindow::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  switch (message) {
    case WM_PAINT:
      return OnPaint(), 0;
    case WM_ERASEBKGND:
      return TRUE;
    case WM_NOTIFY:
      return OnNotify(*reinterpret_cast<NMHDR*>(longer));
    case WM_COMMAND:
      return OnCommand(HIWORD(wide), reinterpret_cast<HWND>(longer)), 0;
    case WM_DRAWITEM:
      return OnDraw(*reinterpret_cast<DRAWITEMSTRUCT*>(longer)), TRUE;
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
    case WM_CTLCOLOREDIT:
    case WM_CTLCOLORLISTBOX:
      return OnColors(message, wide, longer);
    case WM_ACTIVATE:
      if (LOWORD(wide) != WA_INACTIVE) ShowFocus();
      return 0;
    case WM_CLOSE:
      return form_.Unload(), 0;
    case WM_NCDESTROY:
      return OnGone(wide, longer);
    default:
      return DefWindowProcW(context_->window, message, wide, longer);
  }
}

LRESULT DialogWindow::OnGone(WPARAM wide, LPARAM longer) {
  const HWND window = std::exchange(context_->window, nullptr);
  SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  return DefWindowProcW(window, WM_NCDESTROY, wide, longer);
}

void DialogWindow::OnPaint() {
  PAINTSTRUCT paint;
  const HDC screen = BeginPaint(context_->window, &paint);
  FillArea(screen, paint.rcPaint, context_->colors.ground);
  EndPaint(context_->window, &paint);
}

LRESULT DialogWindow::OnNotify(NMHDR& header) {
  WindowBinding* const binding = WindowBinding::Of(header.hwndFrom);
  return binding != nullptr ? binding->OnNotify(header) : 0;
}

// A button that was pressed by a key has the focus already, and the box before it had no say yet.
void DialogWindow::OnCommand(int code, HWND control) {
  WindowBinding* const binding = control == nullptr ? nullptr : WindowBinding::Of(control);
  if (binding == nullptr) return;
  const bool option = dynamic_cast<OptionButtonBinding*>(binding) != nullptr;
  if (code == BN_CLICKED && !option && !Settle()) return;
  if (IsOpen()) binding->OnCommand(code);
}

void DialogWindow::OnDraw(const DRAWITEMSTRUCT& draw) {
  WindowBinding* const binding = WindowBinding::Of(draw.hwndItem);
  if (binding != nullptr) binding->OnDraw(draw);
}

LRESULT DialogWindow::OnColors(UINT message, WPARAM wide, LPARAM longer) {
  WindowBinding* const binding = WindowBinding::Of(reinterpret_cast<HWND>(longer));
  const HBRUSH brush = binding != nullptr ? binding->OnColors(reinterpret_cast<HDC>(wide)) : nullptr;
  if (brush == nullptr) return DefWindowProcW(context_->window, message, wide, longer);
  return reinterpret_cast<LRESULT>(brush);
}

}  // namespace tavix::win32
