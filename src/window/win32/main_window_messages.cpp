// clang-format off
#include "window/win32/main_window.h"
#include <windowsx.h>
// clang-format on

#include <utility>

#include "forms/main_form.h"

namespace tavix::win32 {

LRESULT CALLBACK MainWindow::Procedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  if (message == WM_NCCREATE) {
    auto* const owner = static_cast<MainWindow*>(reinterpret_cast<CREATESTRUCTW*>(longer)->lpCreateParams);
    owner->context_.window = window;
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(owner));
  }
  auto* const owner = reinterpret_cast<MainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
  return owner != nullptr ? owner->OnMessage(message, wide, longer)
                          : DefWindowProcW(window, message, wide, longer);
}

LRESULT MainWindow::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  switch (message) {
    case WM_PAINT:
      return OnPaint(), 0;
    case WM_ERASEBKGND:
      return TRUE;
    case WM_NOTIFY:
      return OnNotify(*reinterpret_cast<NMHDR*>(longer));
    case WM_COMMAND:
      return OnCommand(wide, longer), 0;
    case WM_DRAWITEM:
      return OnDraw(*reinterpret_cast<DRAWITEMSTRUCT*>(longer)), TRUE;
    case WM_CTLCOLORSTATIC:
    case WM_CTLCOLORBTN:
      return OnColors(message, wide, longer);
    case WM_MOUSEMOVE:
      return ground_.MouseMove({GET_X_LPARAM(longer), GET_Y_LPARAM(longer)}, HeldButtons(wide)), 0;
    case WM_LBUTTONUP:
      return ground_.MouseUp({GET_X_LPARAM(longer), GET_Y_LPARAM(longer)}, kLeftButton), 0;
    case WM_ACTIVATE:
      return OnActivate(wide), 0;
    case WM_TIMER:
      return loader_->OnTimer(wide), 0;
    case WM_CLOSE:
      return frmPubMain.Unload(), 0;
    case WM_ENDSESSION:
      if (wide != FALSE) frmPubMain.Unload();
      return 0;
    case WM_DESTROY:
      return PostQuitMessage(0), 0;
    case WM_NCDESTROY:
      return OnGone(wide, longer);
    default:
      return DefWindowProcW(context_.window, message, wide, longer);
  }
}

LRESULT MainWindow::OnGone(WPARAM wide, LPARAM longer) {
  const HWND window = std::exchange(context_.window, nullptr);
  SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  return DefWindowProcW(window, WM_NCDESTROY, wide, longer);
}

void MainWindow::OnPaint() {
  PAINTSTRUCT paint;
  const HDC context = BeginPaint(context_.window, &paint);
  ground_.Paint(context, paint.rcPaint);
  EndPaint(context_.window, &paint);
}

LRESULT MainWindow::OnNotify(NMHDR& header) {
  WindowBinding* const binding = WindowBinding::Of(header.hwndFrom);
  return binding != nullptr ? binding->OnNotify(header) : 0;
}

void MainWindow::OnCommand(WPARAM wide, LPARAM longer) {
  WindowBinding* const binding = WindowBinding::Of(reinterpret_cast<HWND>(longer));
  if (binding != nullptr) binding->OnCommand(HIWORD(wide));
}

void MainWindow::OnDraw(const DRAWITEMSTRUCT& draw) {
  WindowBinding* const binding = WindowBinding::Of(draw.hwndItem);
  if (binding != nullptr) binding->OnDraw(draw);
}

LRESULT MainWindow::OnColors(UINT message, WPARAM wide, LPARAM longer) {
  WindowBinding* const binding = WindowBinding::Of(reinterpret_cast<HWND>(longer));
  const HBRUSH brush = binding != nullptr ? binding->OnColors(reinterpret_cast<HDC>(wide)) : nullptr;
  if (brush == nullptr) return DefWindowProcW(context_.window, message, wide, longer);
  return reinterpret_cast<LRESULT>(brush);
}

// The control in focus keeps its place while another program is in front.
void MainWindow::OnActivate(WPARAM wide) {
  if (LOWORD(wide) == WA_INACTIVE) {
    const HWND focus = GetFocus();
    if (IsChild(context_.window, focus) != FALSE) context_.lostFocus = focus;
  } else if (HIWORD(wide) == 0) {
    SetFocus(context_.window);
    GiveFocusBack();
  }
}

}  // namespace tavix::win32
