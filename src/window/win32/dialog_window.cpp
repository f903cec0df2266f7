#include "window/win32/dialog_window.h"

#include <algorithm>
#include <utility>

#include "forms/main_form.h"
#include "platform/windows/resolution.h"
#include "platform/windows/wide.h"
#include "window/win32/buttons.h"
#include "window/win32/input.h"
#include "window/win32/label_letters.h"
#include "window/win32/paint.h"

namespace tavix::win32 {
namespace {

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
constexpr int kScrollStep = 330;  // twips: a row

HWND WindowOf(const Control* control) {
  return control == nullptr ? nullptr : reinterpret_cast<HWND>(control->hWnd);
}

// The corner of a window in the middle of its owner and inside the screen.
POINT CenteredOver(HWND owner, SIZE size) {
  const RECT work = windows::MonitorOf(owner).rcWork;
  RECT around = work;
  if (owner != nullptr && IsIconic(owner) == FALSE) GetWindowRect(owner, &around);
  return windows::Within(
      work, {(around.left + around.right - size.cx) / 2, (around.top + around.bottom - size.cy) / 2}, size);
}

}  // namespace

DialogWindow::DialogWindow(const Description& description) : dialog_(description), form_(description.form) {
  form_.ShowModal = [this] { ShowModal(); };
  form_.Unload = [this] { Unload(); };
}

DialogWindow::~DialogWindow() {
  Unload();
  form_.ShowModal = nullptr;
  form_.Unload = nullptr;
}

void DialogWindow::ShowModal() {
  if (context_ != nullptr) return;
  if (Create()) {
    shown_.push_back(this);
    Loop();
    std::erase(shown_, this);
  }
  Unload();
  controls_.reset();
  formBinding_.reset();
  context_.reset();
}

// The form's Load needs the windows of its controls, so these come first.
bool DialogWindow::Create() {
  owner_ = shown_.empty() ? static_cast<Form*>(&frmPubMain) : &shown_.back()->form_;
  context_ = std::make_unique<WindowContext>();
  context_->form = &form_;
  context_->boxLeft = [this](TextBoxBinding& box) {
    if (!reportingLeftBox_) leftBox_ = &box;
  };
  RegisterWindowClass(dialog_.windowClass);
  // It gets the resolution of the monitor that it is made on.
  const RECT work = windows::MonitorOf(WindowOf(owner_)).rcWork;
  if (CreateWindowExW(WS_EX_CONTROLPARENT | dialog_.extendedStyle, dialog_.windowClass, L"", kStyle,
                      work.left, work.top, 0, 0, WindowOf(owner_), nullptr, GetModuleHandleW(nullptr),
                      Parameter()) == nullptr)
    return false;
  MakeToolTips(*context_);
  MakeDrawingTools(*context_, windows::DpiOf(context_->window));
  form_.hWnd = reinterpret_cast<intptr_t>(context_->window);
  formBinding_.emplace(form_, context_->changes, [this] { ShowState(); });
  AddControls(controls_.emplace(*context_));
  form_.LoadOnce();
  LayOut();
  form_.Resize();
  form_.ActiveControl = &dialog_.first;
  CenterOverOwner();
  ownerEnabled_ = owner_->Enabled;
  owner_->Enabled = false;
  return true;
}

void DialogWindow::LayOut() {
  dialog_.layOut([this](TextView text) { return TextWidth(*context_, text); });
}

void DialogWindow::CenterOverOwner() {
  const SIZE size = FitScreen();
  const POINT corner = CenteredOver(WindowOf(owner_), size);
  SetWindowPos(context_->window, nullptr, corner.x, corner.y, size.cx, size.cy,
               SWP_NOZORDER | SWP_NOACTIVATE);
}

// Gives the window scroll bars where the work area has no room for it. Returns the size that it has then.
SIZE DialogWindow::FitScreen() {
  const HWND window = context_->window;
  const int dpi = windows::DpiOf(window);
  const SIZE inside{context_->Pixels(form_.Width), context_->Pixels(form_.Height)};
  const RECT around = windows::WindowAround({0, 0, inside.cx, inside.cy}, kStyle,
                                            WS_EX_CONTROLPARENT | dialog_.extendedStyle, dpi);
  const SIZE frame{around.right - around.left - inside.cx, around.bottom - around.top - inside.cy};
  const RECT work = windows::MonitorOf(window).rcWork;
  const SIZE room{work.right - work.left - frame.cx, work.bottom - work.top - frame.cy};
  const int barWidth = windows::SystemLength(SM_CXVSCROLL, dpi),
            barHeight = windows::SystemLength(SM_CYHSCROLL, dpi);
  const bool tall = inside.cy > room.cy || (inside.cx > room.cx && inside.cy + barHeight > room.cy);
  const bool wide = inside.cx > room.cx || (tall && inside.cx + barWidth > room.cx);
  const SIZE shown{std::min(inside.cx + (tall ? barWidth : 0), room.cx),
                   std::min(inside.cy + (wide ? barHeight : 0), room.cy)};
  const auto setBar = [window](int bar, bool needed, LONG length, LONG page) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE;
    info.nMax = needed ? length - 1 : 0;
    info.nPage = needed ? static_cast<UINT>(page) : 0;
    SetScrollInfo(window, bar, &info, FALSE);
    ShowScrollBar(window, bar, needed ? TRUE : FALSE);
  };
  setBar(SB_VERT, tall, inside.cy, shown.cy - (wide ? barHeight : 0));
  setBar(SB_HORZ, wide, inside.cx, shown.cx - (tall ? barWidth : 0));
  ScrollTo(SB_VERT, 0);
  ScrollTo(SB_HORZ, 0);
  seenFocus_ = nullptr;
  return {shown.cx + frame.cx, shown.cy + frame.cy};
}

void DialogWindow::OnNewLook(int monitorDpi, const RECT* suggested) {
  if (!controls_) return;
  RECT place;
  GetWindowRect(context_->window, &place);
  if (suggested != nullptr) place = *suggested;
  MakeDrawingTools(*context_, monitorDpi);
  LayOut();
  const SIZE size = FitScreen();
  const POINT corner =
      windows::Within(windows::MonitorOf(context_->window).rcWork, {place.left, place.top}, size);
  SetWindowPos(context_->window, nullptr, corner.x, corner.y, size.cx, size.cy,
               SWP_NOZORDER | SWP_NOACTIVATE);
  controls_->ChangeLook();
  ShowChanges();
}

void DialogWindow::Loop() {
  ShowAllChanges();
  ShowWindow(context_->window, SW_SHOWNORMAL);
  MSG message{};
  while (IsOpen()) {
    ShowAllChanges();
    if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
      // WM_QUIT is for the main window's loop.
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    Handle(message);
  }
}

// Enables the owner before the window goes: otherwise another program would come to the front. The bindings
// stay until the loop has ended, since a handler of one of them may be running.
void DialogWindow::Unload() {
  form_.Loaded = false;
  if (!IsOpen()) return;
  leftBox_ = nullptr;
  form_.hWnd = 0;
  form_.ActiveControl = nullptr;
  formBinding_->Detach();
  controls_->Detach();
  owner_->Enabled = ownerEnabled_;
  ShowAllChanges();
  DestroyWindow(context_->window);
}

void DialogWindow::Handle(MSG& message) {
  const bool own = IsOpen() && (message.hwnd == context_->window || IsChild(context_->window, message.hwnd));
  if (own && (!LeaveBoxByMouse(message) || PressKey(message))) return;
  const bool done = IsOpen() && (FollowLabelLetter(context_->window, message) ||
                                 IsDialogMessageW(context_->window, &message) != FALSE);
  if (!done) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  ReportLeftBox();
}

// True if the key goes no further.
bool DialogWindow::PressKey(const MSG& message) {
  if (message.message != WM_KEYDOWN) return false;
  const bool enters = message.wParam == VK_RETURN;
  if (enters && IsRepeated(message.lParam)) return true;
  form_.KeyDown(static_cast<int>(message.wParam), HeldShiftKeys());
  if (!IsOpen() || (enters && dialog_.enter == nullptr)) return true;
  if (message.wParam == VK_ESCAPE) return dialog_.escape.Click(), true;
  const bool onButton = message.hwnd != context_->window &&
                        dynamic_cast<PushBinding*>(WindowBinding::Of(message.hwnd)) != nullptr;
  if (!enters || onButton) return false;
  return Press(dialog_.enter), true;
}

// Runs the LostFocus handler of the focused box. The focus itself stays.
void DialogWindow::Press(Button* button) {
  TextBoxBinding* const box = BoxInFocus();
  Control* const active = form_.ActiveControl;
  if (box != nullptr) {
    form_.ActiveControl = button;
    if (!box->Leave()) return;
    form_.ActiveControl = active;
  }
  if (IsOpen() && button->Enabled) button->Click();
}

TextBoxBinding* DialogWindow::BoxInFocus() const {
  const HWND focus = GetFocus();
  return focus != nullptr && GetParent(focus) == context_->window
             ? dynamic_cast<TextBoxBinding*>(WindowBinding::Of(focus))
             : nullptr;
}

// A click on another control first takes the focus from the box. False if the click has no further effect.
bool DialogWindow::LeaveBoxByMouse(const MSG& message) {
  if (message.message != WM_LBUTTONDOWN && message.message != WM_LBUTTONDBLCLK &&
      message.message != WM_RBUTTONDOWN)
    return true;
  const TextBoxBinding* const box = BoxInFocus();
  HWND target = message.hwnd;
  while (target != context_->window && GetParent(target) != context_->window) target = GetParent(target);
  if (box == nullptr || target == context_->window || target == box->Window()) return true;
  if ((SendMessageW(target, WM_GETDLGCODE, 0, 0) & DLGC_STATIC) != 0) return true;
  SetFocus(target);
  auto* const option = dynamic_cast<OptionButtonBinding*>(WindowBinding::Of(target));
  if (option != nullptr && message.message != WM_RBUTTONDOWN) option->Press();
  return ReportLeftBox() && option == nullptr;
}

// Tells the form of a box that the focus has left. False if the box has taken the focus back.
bool DialogWindow::ReportLeftBox() {
  TextBoxBinding* const box = std::exchange(leftBox_, nullptr);
  if (box == nullptr || !IsOpen()) return true;
  reportingLeftBox_ = true;
  const bool gone = box->Leave();
  if (IsOpen()) ShowChanges();
  reportingLeftBox_ = false;
  return gone;
}

void DialogWindow::ShowAllChanges() {
  frmPubMain.Refresh();
  for (size_t i = 0; i < shown_.size(); ++i) {
    if (shown_[i]->IsOpen()) shown_[i]->ShowChanges();
  }
}

void DialogWindow::ShowChanges() {
  context_->changes.Flush();
  ShowFocus();
  ScrollToFocus();
}

void DialogWindow::ShowState() {
  SetWindowTextW(context_->window, windows::Wide(form_.Caption.Get()));
  const bool enabled = form_.Enabled;
  if ((IsWindowEnabled(context_->window) != FALSE) != enabled)
    EnableWindow(context_->window, enabled ? TRUE : FALSE);
}

// Moves the focus to the form's active control, or to the next one while that can't take it.
void DialogWindow::ShowFocus() {
  if (GetActiveWindow() != context_->window) return;
  const auto canTake = [](HWND control) {
    return control != nullptr && IsWindowVisible(control) != FALSE && IsWindowEnabled(control) != FALSE;
  };
  const HWND wanted = WindowOf(form_.ActiveControl);
  if (canTake(wanted)) {
    if (GetFocus() != wanted) SetFocus(wanted);
  } else if (GetFocus() == context_->window) {
    const HWND next = GetNextDlgTabItem(context_->window, wanted, FALSE);
    if (canTake(next)) SetFocus(next);
  }
}

//--- Scrolling

void DialogWindow::ScrollTo(int bar, int position) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_POS;
  info.nPos = position;
  const LONG now = SetScrollInfo(context_->window, bar, &info, TRUE);  // not beyond an end
  LONG& scrolled = bar == SB_VERT ? context_->scrolled.y : context_->scrolled.x;
  if (std::exchange(scrolled, now) == now) return;
  controls_->Move();
  InvalidateRect(context_->window, nullptr, FALSE);
}

void DialogWindow::OnScroll(int bar, int request) {
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  GetScrollInfo(context_->window, bar, &info);
  const int line = context_->Pixels(kScrollStep), page = static_cast<int>(info.nPage);
  switch (request) {
    case SB_LINEUP:
      return ScrollTo(bar, info.nPos - line);
    case SB_LINEDOWN:
      return ScrollTo(bar, info.nPos + line);
    case SB_PAGEUP:
      return ScrollTo(bar, info.nPos - page);
    case SB_PAGEDOWN:
      return ScrollTo(bar, info.nPos + page);
    case SB_TOP:
      return ScrollTo(bar, info.nMin);
    case SB_BOTTOM:
      return ScrollTo(bar, info.nMax);
    case SB_THUMBTRACK:
      return ScrollTo(bar, info.nTrackPos);
    default:
      return;
  }
}

void DialogWindow::OnWheel(int turned) {
  wheel_ += turned;
  const int steps = wheel_ / WHEEL_DELTA;
  wheel_ %= WHEEL_DELTA;
  ScrollTo(SB_VERT, context_->scrolled.y - steps * context_->Pixels(3 * kScrollStep));
}

// What has got the focus is seen. Afterwards the user may scroll it away.
void DialogWindow::ScrollToFocus() {
  const HWND focus = GetFocus();
  if (focus == seenFocus_ || focus == nullptr || GetParent(focus) != context_->window) return;
  seenFocus_ = focus;
  RECT place, inside;
  GetWindowRect(focus, &place);
  MapWindowPoints(nullptr, context_->window, reinterpret_cast<POINT*>(&place), 2);
  GetClientRect(context_->window, &inside);
  const int gap = context_->Pixels(kScrollStep) / 2;
  const auto distance = [gap](LONG from, LONG to, LONG end) {
    if (to + gap > end && from > gap) return std::min(to + gap - end, from - gap);
    return from < gap ? from - gap : 0L;
  };
  ScrollTo(SB_VERT, context_->scrolled.y + distance(place.top, place.bottom, inside.bottom));
  ScrollTo(SB_HORZ, context_->scrolled.x + distance(place.left, place.right, inside.right));
}

//--- Messages

std::optional<LRESULT> DialogWindow::OnMessage(UINT message, WPARAM wParam, LPARAM) {
  switch (message) {
    case WM_ACTIVATE:
      if (LOWORD(wParam) != WA_INACTIVE) ShowFocus();
      return 0;
    case WM_CLOSE:
      return form_.Unload(), 0;
    case WM_VSCROLL:
      return OnScroll(SB_VERT, LOWORD(wParam)), 0;
    case WM_HSCROLL:
      return OnScroll(SB_HORZ, LOWORD(wParam)), 0;
    case WM_MOUSEWHEEL:
      return OnWheel(static_cast<short>(HIWORD(wParam))), 0;
    default:
      return std::nullopt;
  }
}

void DialogWindow::OnPaint(HDC canvas, const RECT& area) {
  FillArea(canvas, area, context_->colors.background);
}

// A button pressed by its letter already has the focus. The text box that lost it runs its LostFocus handler
// first.
void DialogWindow::OnCommand(WindowBinding& control, int code) {
  const bool option = dynamic_cast<OptionButtonBinding*>(&control) != nullptr;
  if (code == BN_CLICKED && !option && !ReportLeftBox()) return;
  if (IsOpen()) control.OnCommand(code);
}

}  // namespace tavix::win32
