// clang-format off
#include "window/win32/main_window.h"
#include <windowsx.h>
// clang-format on

#include "forms/main_form.h"

namespace tavix::win32 {

std::optional<LRESULT> MainWindow::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  switch (message) {
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
    default:
      return std::nullopt;
  }
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
