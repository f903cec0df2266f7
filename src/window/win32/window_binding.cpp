#include "window/win32/window_binding.h"

#include <commctrl.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/windows/wide.h"
#include "window/caption.h"
#include "window/win32/accessible_name.h"
#include "window/win32/input.h"
#include "window/win32/paint.h"

namespace tavix::win32 {
namespace {

// A button of the system paints itself at these messages, without WM_PAINT.
bool PaintsItselfAt(UINT message) {
  constexpr UINT kMessages[] = {BM_SETCHECK, BM_SETSTATE, WM_SETFOCUS,     WM_KILLFOCUS,
                                WM_ENABLE,   WM_SETTEXT,  WM_UPDATEUISTATE};
  return std::ranges::find(kMessages, message) != std::end(kMessages);
}

}  // namespace

ControlName CaptionName(const Property<Text>& caption) {
  return {[&caption] { return caption.Get(); }};
}

ControlName PlainName(const Property<Text>& caption) {
  return {[&caption] { return PlainCaption(caption.Get()); }};
}

void WindowBinding::Create(int id, const wchar_t* className, DWORD style) {
  if (name_.isWindowText) shownName_ = Name();
  bounds_ = context_.Area(model_);
  style |= WS_CHILD | WS_CLIPSIBLINGS;
  if (IsRectEmpty(&bounds_) == FALSE && IsShown()) style |= WS_VISIBLE;
  if (!model_.Enabled) style |= WS_DISABLED;
  window_ =
      CreateWindowExW(0, className, windows::Wide(shownName_), style, bounds_.left, bounds_.top,
                      bounds_.right - bounds_.left, bounds_.bottom - bounds_.top, context_.window,
                      reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr), nullptr);
  model_.hWnd = reinterpret_cast<intptr_t>(window_);
  // The system's controls leave this field to the program.
  SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
  classProcedure_ = reinterpret_cast<WNDPROC>(
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

LRESULT CALLBACK WindowBinding::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  WindowBinding* const binding = Of(window);
  if (binding == nullptr) return DefWindowProcW(window, message, wParam, lParam);
  if (message == WM_NCDESTROY) SetWindowLongPtrW(window, GWLP_USERDATA, 0);
  const auto result = binding->OnMessage(message, wParam, lParam);
  return result ? *result : binding->PassOn(message, wParam, lParam);
}

std::optional<LRESULT> WindowBinding::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  // Only outlined controls have anything there, and they paint it themselves.
  if (message == WM_NCPAINT) return 0;
  if (message == WM_DESTROY && !name_.isWindowText && !shownName_.empty()) ClearAccessibleName(window_);
  if (message == WM_MOUSEMOVE && context_.HasMoved(window_, PointOf(lParam)))
    OnMouseMove(HeldButtons(wParam));
  if (message == WM_KEYDOWN) context_.letters.KeyPressed(wParam, static_cast<DWORD>(GetMessageTime()));
  if (message == WM_SETFOCUS) TakeFocus();
  return std::nullopt;
}

void WindowBinding::OnDraw(const DRAWITEMSTRUCT& draw) {
  const Canvas canvas(draw.hDC, draw.rcItem);
  Paint(canvas.Get(), draw.rcItem, draw.itemState);
}

void WindowBinding::Redraw(bool erase) const {
  const bool formIsShown = (GetWindowLongPtrW(context_.window, GWL_STYLE) & WS_VISIBLE) != 0;
  if (formIsShown) InvalidateRect(window_, nullptr, erase ? TRUE : FALSE);
}

void WindowBinding::Apply() {
  ShowBounds();
  ShowToolTip();
  ShowName();
  Show();
  ShowState();
}

void WindowBinding::ChangeLook() {
  Send(WM_SETFONT, reinterpret_cast<WPARAM>(context_.font.Get()));
  ShowBounds();
  ShowLook();
  ModelChanged();
}

void WindowBinding::ShowName() {
  const Text name = Name();
  if (name == shownName_) return;
  shownName_ = name;
  if (name_.isWindowText) {
    SetWindowTextW(window_, windows::Wide(name));
  } else {
    SetAccessibleName(window_, name);
  }
  NotifyWinEvent(EVENT_OBJECT_NAMECHANGE, window_, OBJID_CLIENT, CHILDID_SELF);
}

void WindowBinding::ShowBounds() {
  const RECT bounds = context_.Area(model_);
  if (EqualRect(&bounds, &bounds_) != FALSE) return;
  // Its first bounds make a control visible.
  const bool appears = IsRectEmpty(&bounds_) != FALSE && IsShown();
  bounds_ = bounds;
  SetWindowPos(window_, nullptr, bounds.left, bounds.top, bounds.right - bounds.left,
               bounds.bottom - bounds.top, SWP_NOZORDER | SWP_NOACTIVATE | (appears ? SWP_SHOWWINDOW : 0U));
  if (appears && covered_ != nullptr) covered_->ModelChanged();
}

void WindowBinding::HideBelow(WindowBinding& cover) {
  cover_ = &cover;
  cover.covered_ = this;
}

void WindowBinding::BeginGroup() const {
  SetWindowLongPtrW(window_, GWL_STYLE, GetWindowLongPtrW(window_, GWL_STYLE) | WS_GROUP);
}

bool WindowBinding::IsShown() const {
  return model_.Visible && (cover_ == nullptr || !cover_->model_.Visible);
}

void WindowBinding::ShowState() {
  const bool visible = IsShown();
  if (!visible || !model_.Enabled) GiveUpFocus();
  if (IsEnabled() != model_.Enabled) {
    EnableWindow(window_, model_.Enabled);
    // Scroll bars are not repainted by EnableWindow.
    RedrawWindow(window_, nullptr, nullptr, RDW_INVALIDATE | RDW_FRAME);
  }
  const bool shown = (GetWindowLongPtrW(window_, GWL_STYLE) & WS_VISIBLE) != 0;
  if (shown == visible) return;
  ShowWindow(window_, visible ? SW_SHOWNA : SW_HIDE);
  if (covered_ != nullptr) covered_->ModelChanged();
}

// The user's choice of another control ends the wait of the one that lost the focus.
void WindowBinding::TakeFocus() {
  if (context_.form != nullptr) context_.form->ActiveControl = &model_;
  if (window_ != context_.standIn) context_.lostFocus = context_.standIn = nullptr;
}

// Keys sent to a hidden or disabled control would be lost.
void WindowBinding::GiveUpFocus() {
  if (GetFocus() != window_) return;
  if (window_ != context_.standIn) context_.lostFocus = window_;
  context_.standIn = nullptr;
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

std::optional<LRESULT> OutlinedBinding::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_NCPAINT) {
    // The system paints the scroll bars. Without them, its border would only flash under ours.
    const bool scrolls = (GetWindowLongPtrW(Window(), GWL_STYLE) & (WS_HSCROLL | WS_VSCROLL)) != 0;
    if (scrolls) PassOn(message, wParam, lParam);
    PaintOutline();
    return 0;
  }
  if (message == WM_SETFOCUS || message == WM_KILLFOCUS)
    RedrawWindow(Window(), nullptr, nullptr, RDW_FRAME | RDW_INVALIDATE);
  return WindowBinding::OnMessage(message, wParam, lParam);
}

void OutlinedBinding::PaintOutline(std::optional<COLORREF> fill) const {
  RECT area, inside;
  GetWindowRect(Window(), &area);
  GetClientRect(Window(), &inside);
  MapWindowPoints(Window(), nullptr, reinterpret_cast<POINT*>(&inside), 2);
  OffsetRect(&inside, -area.left, -area.top);
  OffsetRect(&area, -area.left, -area.top);
  const HDC context = GetWindowDC(Window());
  if (fill) {
    ExcludeClipRect(context, inside.left, inside.top, inside.right, inside.bottom);
    FillArea(context, area, *fill);
  }
  DrawOutline(context, area, GetFocus() == Window() ? context_.colors.accent : context_.colors.line);
  ReleaseDC(Window(), context);
}

std::optional<LRESULT> PaintedBinding::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_PAINT) {
    PaintBuffered(Window(), [this](HDC canvas, const RECT&) {
      RECT area;
      GetClientRect(Window(), &area);
      Paint(canvas, area, 0);
    });
    return 0;
  }
  if (message == WM_ERASEBKGND) return TRUE;
  const std::optional<LRESULT> done = WindowBinding::OnMessage(message, wParam, lParam);
  if (done || !PaintsItselfAt(message)) return done;
  const LRESULT result = PassOn(message, wParam, lParam);
  RedrawWindow(Window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  return result;
}

}  // namespace tavix::win32
