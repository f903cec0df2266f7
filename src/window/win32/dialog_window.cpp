#include "window/win32/dialog_window.h"

#include <algorithm>
#include <utility>

#include "forms/main_form.h"
#include "platform/windows/wide.h"
#include "window/win32/buttons.h"
#include "window/win32/input.h"
#include "window/win32/label_letters.h"
#include "window/win32/paint.h"

namespace tavix::win32 {
namespace {

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;

HWND WindowOf(const Control* control) {
  return control == nullptr ? nullptr : reinterpret_cast<HWND>(control->hWnd);
}

// Bounds in the middle of the owner and inside the screen.
RECT CenteredOver(HWND owner, SIZE size) {
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  GetMonitorInfoW(MonitorFromWindow(owner, MONITOR_DEFAULTTOPRIMARY), &screen);
  const RECT& work = screen.rcWork;
  RECT around = work;
  if (owner != nullptr && IsIconic(owner) == FALSE) GetWindowRect(owner, &around);
  const LONG left = (around.left + around.right - size.cx) / 2;
  const LONG top = (around.top + around.bottom - size.cy) / 2;
  RECT bounds{};
  bounds.left = std::max(work.left, std::min(left, work.right - size.cx));
  bounds.top = std::max(work.top, std::min(top, work.bottom - size.cy));
  bounds.right = bounds.left + size.cx;
  bounds.bottom = bounds.top + size.cy;
  return bounds;
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
  MakeDrawingTools(*context_);
  context_->form = &form_;
  context_->boxLeft = [this](TextBoxBinding& box) {
    if (!reportingLeftBox_) leftBox_ = &box;
  };
  RegisterWindowClass(dialog_.windowClass);
  if (CreateWindowExW(WS_EX_CONTROLPARENT | dialog_.extendedStyle, dialog_.windowClass, L"", kStyle, 0, 0, 0,
                      0, WindowOf(owner_), nullptr, GetModuleHandleW(nullptr), Parameter()) == nullptr)
    return false;
  form_.hWnd = reinterpret_cast<intptr_t>(context_->window);
  formBinding_.emplace(form_, context_->changes, [this] { ShowState(); });
  AddControls(controls_.emplace(*context_));
  form_.LoadOnce();
  dialog_.layOut([this](TextView text) { return TextWidth(*context_, text); });
  form_.Resize();
  form_.ActiveControl = &dialog_.first;
  CenterOverOwner();
  ownerEnabled_ = owner_->Enabled;
  owner_->Enabled = false;
  return true;
}

void DialogWindow::CenterOverOwner() {
  RECT whole{0, 0, context_->Pixels(form_.Width), context_->Pixels(form_.Height)};
  AdjustWindowRectEx(&whole, kStyle, FALSE, WS_EX_CONTROLPARENT | dialog_.extendedStyle);
  const RECT bounds = CenteredOver(WindowOf(owner_), {whole.right - whole.left, whole.bottom - whole.top});
  SetWindowPos(context_->window, nullptr, bounds.left, bounds.top, bounds.right - bounds.left,
               bounds.bottom - bounds.top, SWP_NOZORDER | SWP_NOACTIVATE);
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
  constexpr LPARAM kRepeated = 1 << 30;
  const bool enters = message.wParam == VK_RETURN;
  if (enters && (message.lParam & kRepeated) != 0) return true;
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

std::optional<LRESULT> DialogWindow::OnMessage(UINT message, WPARAM wParam, LPARAM) {
  switch (message) {
    case WM_ACTIVATE:
      if (LOWORD(wParam) != WA_INACTIVE) ShowFocus();
      return 0;
    case WM_CLOSE:
      return form_.Unload(), 0;
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
