#include "window/win32/window_binding.h"

#include <commctrl.h>

#include <utility>

#include "platform/windows/wide.h"

namespace tavix::win32 {

int HeldButtons(WPARAM wide) {
  return ((wide & MK_LBUTTON) != 0 ? kLeftButton : 0) | ((wide & MK_RBUTTON) != 0 ? kRightButton : 0);
}

POINT PointOf(LPARAM position) {
  return {static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
}

void WindowBinding::Create(int id, const wchar_t* className, DWORD style, TextView name) {
  name_ = name;
  place_ = context_.Area(model_);
  style |= WS_CHILD | WS_CLIPSIBLINGS;
  if (IsRectEmpty(&place_) == FALSE && IsShown()) style |= WS_VISIBLE;
  if (!model_.Enabled) style |= WS_DISABLED;
  window_ =
      CreateWindowExW(0, className, windows::Wide(name_), style, place_.left, place_.top,
                      place_.right - place_.left, place_.bottom - place_.top, context_.window,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
  model_.hWnd = reinterpret_cast<intptr_t>(window_);
  // The controls of the system leave this room to those who make them.
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  kindProcedure_ = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(Procedure)));
  Send(WM_SETFONT, reinterpret_cast<WPARAM>(context_.font.Get()));
}

void WindowBinding::Detach() {
  model_.hWnd = 0;
  Binding::Detach();
}

WindowBinding* WindowBinding::Of(HWND window) {
  return reinterpret_cast<WindowBinding*>(GetWindowLongPtrW(window, GWLP_USERDATA));
}

LRESULT CALLBACK WindowBinding::Procedure(HWND window, UINT message, WPARAM wide, LPARAM longer) {
  WindowBinding* const binding = Of(window);
  if (binding == nullptr) return DefWindowProcW(window, message, wide, longer);
  if (message == WM_NCDESTROY) SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  const auto result = binding->OnMessage(message, wide, longer);
  return result ? *result : binding->PassOn(message, wide, longer);
}

std::optional<LRESULT> WindowBinding::OnMessage(UINT message, WPARAM wide, LPARAM longer) {
  // Those with a frame paint it by themselves; the others have nothing there.
  if (message == WM_NCPAINT) return 0;
  if (message == WM_MOUSEMOVE && context_.HasMoved(window_, PointOf(longer))) OnMouseMove(HeldButtons(wide));
  if (message == WM_SETFOCUS && context_.form != nullptr) context_.form->ActiveControl = &model_;
  return std::nullopt;
}

void WindowBinding::SetName(TextView name) {
  if (name == name_) return;
  name_ = name;
  SetWindowTextW(window_, windows::Wide(name_));
}

void WindowBinding::Redraw(bool erase) const {
  const bool formIsShown = (GetWindowLongPtrW(context_.window, GWL_STYLE) & WS_VISIBLE) != 0;
  if (formIsShown) InvalidateRect(window_, nullptr, erase ? TRUE : FALSE);
}

void WindowBinding::Apply() {
  ShowPlace();
  ShowToolTip();
  Show();
  ShowState();
}

void WindowBinding::ShowPlace() {
  const RECT place = context_.Area(model_);
  if (EqualRect(&place, &place_) != FALSE) return;
  // What has never had a place is shown with it.
  const bool appears = IsRectEmpty(&place_) != FALSE && IsShown();
  place_ = place;
  SetWindowPos(window_, nullptr, place.left, place.top, place.right - place.left, place.bottom - place.top,
               SWP_NOZORDER | SWP_NOACTIVATE | (appears ? SWP_SHOWWINDOW : 0U));
  if (appears && covered_ != nullptr) covered_->ModelChanged();
}

void WindowBinding::LieUnder(WindowBinding& cover) {
  cover_ = &cover;
  cover.covered_ = this;
}

bool WindowBinding::IsShown() const {
  return model_.Visible && (cover_ == nullptr || !cover_->model_.Visible);
}

void WindowBinding::ShowState() {
  const bool visible = IsShown();
  if (!visible || !model_.Enabled) LeaveFocus();
  if ((IsWindowEnabled(window_) != FALSE) != model_.Enabled) {
    EnableWindow(window_, model_.Enabled);
    // Scroll bars keep the look that they had when they were last painted.
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
  }
  const bool shown = (GetWindowLongPtrW(window_, GWL_STYLE) & WS_VISIBLE) != 0;
  if (shown == visible) return;
  ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE);
  if (covered_ != nullptr) covered_->ModelChanged();
}

// A hidden or disabled control would keep the keys to itself.
void WindowBinding::LeaveFocus() {
  if (GetFocus() != window_) return;
  context_.lostFocus = window_;
  SetFocus(context_.window);
}

void WindowBinding::ShowToolTip() {
  if (model_.ToolTipText == toolTip_) return;
  const bool known = !toolTip_.empty();
  toolTip_ = model_.ToolTipText;
  TOOLINFOW tool{};
  tool.cbSize = sizeof tool;
  tool.uFlags = TTF_IDISHWND | TTF_SUBCLASS;
  tool.hwnd = context_.window;
  tool.uId = reinterpret_cast<UINT_PTR>(window_);
  tool.lpszText = windows::WideBuffer(toolTip_.data());
  SendMessageW(context_.toolTips, known ? TTM_UPDATETIPTEXTW : TTM_ADDTOOLW, 0,
               reinterpret_cast<LPARAM>(&tool));
}

}  // namespace tavix::win32
