#include "window/win32/dialog_window.h"

#include <algorithm>
#include <utility>

#include "forms/main_form.h"
#include "platform/windows/wide.h"
#include "window/win32/option_button_binding.h"
#include "window/win32/paint.h"
#include "window/win32/push_binding.h"
#include "window/win32/shift_keys.h"

namespace tavix::win32 {
namespace {

constexpr DWORD kStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN;
constexpr DWORD kExtendedStyle = WS_EX_CONTROLPARENT;

HWND WindowOf(const Control* control) {
  return control == nullptr ? nullptr : reinterpret_cast<HWND>(control->hWnd);
}

// In the middle of the owner and inside the screen.
RECT PlaceOver(HWND owner, SIZE size) {
  MONITORINFO screen{};
  screen.cbSize = sizeof screen;
  GetMonitorInfoW(MonitorFromWindow(owner, MONITOR_DEFAULTTOPRIMARY), &screen);
  const RECT& room = screen.rcWork;
  RECT around = room;
  if (owner != nullptr && IsIconic(owner) == FALSE) GetWindowRect(owner, &around);
  const LONG left = (around.left + around.right - size.cx) / 2;
  const LONG top = (around.top + around.bottom - size.cy) / 2;
  RECT place{};
  place.left = std::max(room.left, std::min(left, room.right - size.cx));
  place.top = std::max(room.top, std::min(top, room.bottom - size.cy));
  place.right = place.left + size.cx;
  place.bottom = place.top + size.cy;
  return place;
}

}  // namespace

DialogWindow::DialogWindow(Form& form, const wchar_t* windowClass, Button* enter, Button* escape)
    : form_(form), class_(windowClass), enter_(enter), escape_(escape) {
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
  bindings_.clear();
  frame_.reset();
  context_.reset();
}

// The form's load event looks for windows of its controls, so they are there before it.
bool DialogWindow::Create() {
  owner_ = shown_.empty() ? static_cast<Form*>(&frmPubMain) : &shown_.back()->form_;
  context_ = std::make_unique<WindowContext>();
  MakeDrawingTools(*context_);
  context_->form = &form_;
  MakeClassKnown(class_);
  if (CreateWindowExW(kExtendedStyle, class_, L"", kStyle, 0, 0, 0, 0, WindowOf(owner_), nullptr,
                      GetModuleHandleW(nullptr), Parameter()) == nullptr)
    return false;
  form_.hWnd = reinterpret_cast<intptr_t>(context_->window);
  frame_ = std::make_unique<FrameBinding>(*this);
  Bind(*context_, *this, bindings_);
  form_.LoadOnce();
  LayOut([this](TextView text) { return TextWidth(*context_, text); });
  form_.Resize();
  form_.ActiveControl = &First();
  PlaceOverOwner();
  ownerEnabled_ = owner_->Enabled;
  owner_->Enabled = false;
  return true;
}

void DialogWindow::PlaceOverOwner() {
  RECT frame{0, 0, context_->Pixels(form_.Width), context_->Pixels(form_.Height)};
  AdjustWindowRectEx(&frame, kStyle, FALSE, kExtendedStyle);
  const RECT place = PlaceOver(WindowOf(owner_), {frame.right - frame.left, frame.bottom - frame.top});
  SetWindowPos(context_->window, nullptr, place.left, place.top, place.right - place.left,
               place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
}

void DialogWindow::Loop() {
  ShowAllChanges();
  ShowWindow(context_->window, SW_SHOWNORMAL);
  MSG message{};
  while (IsOpen()) {
    ShowAllChanges();
    if (GetMessageW(&message, nullptr, 0, 0) <= 0) {
      // The end of the program is for the loop of the main window.
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    Handle(message);
  }
}

// The owner is in reach again before the window goes, or another program would come to the front. The
// bindings stay until the loop has ended, since one of them may be at work.
void DialogWindow::Unload() {
  form_.Loaded = false;
  if (!IsOpen()) return;
  left_ = nullptr;
  form_.hWnd = 0;
  form_.ActiveControl = nullptr;
  frame_->Detach();
  for (const auto& binding : bindings_) binding->Detach();
  owner_->Enabled = ownerEnabled_;
  ShowAllChanges();
  DestroyWindow(context_->window);
}

void DialogWindow::Handle(MSG& message) {
  const bool own = IsOpen() && (message.hwnd == context_->window || IsChild(context_->window, message.hwnd));
  if (own && (!LeaveByMouse(message) || PressKey(message))) return;
  if (!IsOpen() || IsDialogMessageW(context_->window, &message) == FALSE) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
  }
  Settle();
}

// True where the key goes no further.
bool DialogWindow::PressKey(const MSG& message) {
  if (message.message != WM_KEYDOWN) return false;
  constexpr LPARAM kRepeated = 1 << 30;
  const bool enters = message.wParam == VK_RETURN;
  if (enters && (message.lParam & kRepeated) != 0) return true;
  form_.KeyDown(static_cast<int>(message.wParam), HeldShiftKeys());
  if (!IsOpen() || (enters && enter_ == nullptr)) return true;
  if (message.wParam == VK_ESCAPE) return escape_->Click(), true;
  const bool onButton = message.hwnd != context_->window &&
                        dynamic_cast<PushBinding*>(WindowBinding::Of(message.hwnd)) != nullptr;
  if (!enters || onButton) return false;
  return Press(enter_), true;
}

// The box in focus has its say, although it keeps the focus.
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

// A click beside the box in focus moves the focus first. False where that is all that it does.
bool DialogWindow::LeaveByMouse(const MSG& message) {
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
  return Settle() && option == nullptr;
}

void DialogWindow::OnBoxLeft(TextBoxBinding& box) {
  if (!settling_) left_ = &box;
}

// Tells the form of a box that has been left. False where the box has taken the focus back.
bool DialogWindow::Settle() {
  TextBoxBinding* const box = std::exchange(left_, nullptr);
  if (box == nullptr || !IsOpen()) return true;
  settling_ = true;
  const bool gone = box->Leave();
  if (IsOpen()) ShowChanges();
  settling_ = false;
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

// Moves the focus where the program has put it, or back where it was before a control had to give it up.
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

std::optional<LRESULT> DialogWindow::OnMessage(UINT message, WPARAM wide, LPARAM) {
  switch (message) {
    case WM_ACTIVATE:
      if (LOWORD(wide) != WA_INACTIVE) ShowFocus();
      return 0;
    case WM_CLOSE:
      return form_.Unload(), 0;
    default:
      return std::nullopt;
  }
}

void DialogWindow::OnPaint(HDC screen, const RECT& area) { FillArea(screen, area, context_->colors.ground); }

// A button that was pressed by a key has the focus already, and the box before it had no say yet.
void DialogWindow::OnCommand(WindowBinding& control, int code) {
  const bool option = dynamic_cast<OptionButtonBinding*>(&control) != nullptr;
  if (code == BN_CLICKED && !option && !Settle()) return;
  if (IsOpen()) control.OnCommand(code);
}

}  // namespace tavix::win32
