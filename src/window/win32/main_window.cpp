// clang-format off
#include "window/win32/main_window.h"
#include <commctrl.h>
// clang-format on

#include <algorithm>
#include <utility>

#include "forms/main_form.h"
#include "forms/type_form.h"
#include "frame/start_up.h"
#include "platform/desktop.h"
#include "platform/windows/resolution.h"
#include "scan/scan_driver.h"
#include "window/input.h"
#include "window/layout.h"
#include "window/win32/control_ids.h"
#include "window/win32/input.h"
#include "window/win32/popup_menu.h"

namespace tavix::win32 {
namespace {

// A long job's changes are shown at most once in as many milliseconds.
constexpr ULONGLONG kFlushInterval = 16;
// Likewise for a job that serves no input: painting costs it some of its time.
constexpr ULONGLONG kPaintInterval = 100;

bool CanTakeFocus(HWND control) {
  return control != nullptr && IsWindowEnabled(control) != FALSE && IsWindowVisible(control) != FALSE;
}

bool IsLetterOrDigit(WPARAM key) { return (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9'); }

}  // namespace

void TimerBinding::Apply() {
  if (interval_ == model_.Interval) return;
  interval_ = model_.Interval;
  if (interval_ > 0) {
    SetTimer(context_.window, id_, static_cast<UINT>(interval_), nullptr);
  } else {
    KillTimer(context_.window, id_);
  }
}

MainWindow::~MainWindow() {
  frmPubMain.Refresh = nullptr;
  frmPubMain.KeepPainted = nullptr;
  frmPubMain.Minimize = nullptr;
  frmPubMain.Unload = nullptr;
  mdlPubSelf::frameSteps.MakeControls = nullptr;
  frmPubType.menr.Popup = nullptr;
  frmPubType.menh.Popup = nullptr;
  if (context_.window == nullptr) return;
  frmPubMain.hWnd = 0;
  controls_.Detach();
  DestroyWindow(context_.window);
}

bool MainWindow::Create() {
  context_.form = &frmPubMain;
  RegisterWindowClass(kMainWindowClass);
  context_.window = CreateWindowExW(WS_EX_APPWINDOW | WS_EX_CONTROLPARENT, kMainWindowClass, L"Tavix",
                                    WS_POPUP | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN, 0, 0, 0, 0,
                                    nullptr, nullptr, GetModuleHandleW(nullptr), Parameter());
  if (context_.window == nullptr) return false;
  platform::screen = windows::ScreenOf(context_.window);
  MakeToolTips(context_);
  frmPubMain.hWnd = reinterpret_cast<intptr_t>(context_.window);
  formBinding_.emplace(frmPubMain, context_.changes, [this] { ShowForm(); });
  loader_.emplace(frmPubMain.timLoader, context_, kLoaderTimer);
  frmPubMain.Refresh = [this] { Refresh(); };
  frmPubMain.KeepPainted = [this] { KeepPainted(); };
  frmPubMain.Minimize = [this] { ShowWindow(context_.window, SW_MINIMIZE); };
  frmPubMain.Unload = [this] { Unload(); };
  mdlPubSelf::frameSteps.MakeControls = [this] { MakeControls(); };
  for (Menu* menu : {&frmPubType.menr, &frmPubType.menh})
    menu->Popup = [this, menu] { PopUp(context_, *menu); };
  return true;
}

// The window and the controls have their bounds from the start, so nothing moves before it is first seen.
void MainWindow::MakeControls() {
  FitScreen(windows::DpiOf(context_.window));
  ShowBounds();
  AddMainFormControls(controls_);
}

// Makes the window smaller, with all that is in it, where the work area has no room for it.
void MainWindow::FitScreen(int monitorDpi) {
  const RECT work = windows::MonitorOf(context_.window).rcWork;
  const auto most = [](LONG pixels, int twips) {
    return static_cast<int>(pixels * 1440 / std::max(twips, 1));
  };
  const int fitting = std::min(most(work.right - work.left, frmPubMain.Width),
                               most(work.bottom - work.top, frmPubMain.Height));
  MakeDrawingTools(context_, monitorDpi, std::max(fitting, 1));
  FitTexts([this](TextView text) { return TextWidth(context_, text); });
}

void MainWindow::OnNewLook(int monitorDpi, const RECT* suggested) {
  if (IsRectEmpty(&bounds_) != FALSE) return;  // not laid out yet
  platform::screen = windows::ScreenOf(context_.window);
  FitScreen(monitorDpi);
  if (!minimized_) suggested != nullptr ? Place({suggested->left, suggested->top}) : PlaceAgain();
  for (const TreeView* tree : {&frmPubMain.trvPrivacy, &frmPubMain.trvRes})
    platform::desktop->SetTreeBackColor(tree->hWnd, frmPubMain.lsvResult.BackColor);
  controls_.ChangeLook();
  Flush();
}

void MainWindow::Open() {
  frmPubMain.ActiveControl = &frmPubMain.sbtScan;
  Flush();
  ShowWindow(context_.window, SW_SHOWNORMAL);
  ShowFocus();
  UpdateWindow(context_.window);
}

int MainWindow::Run() {
  MSG message{};
  for (;;) {
    Flush();
    if (GetMessageW(&message, nullptr, 0, 0) <= 0) return static_cast<int>(message.wParam);
    Handle(message);
  }
}

void MainWindow::HandleWaiting() {
  if (context_.window != nullptr && GetTickCount64() - lastFlush_ >= kFlushInterval) Flush();
  MSG message;
  // WM_QUIT stays in the queue for Run.
  while (context_.window != nullptr && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE)
    Handle(message);
}

void MainWindow::Handle(MSG& message) {
  if (PressKey(message) || IsDialogMessageW(context_.window, &message) != FALSE) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

// Whether a letter or digit searches in the list or tree in focus. One that is a command does so with Shift,
// or in the middle of a word.
bool MainWindow::IsForList(const MSG& message, int shift) const {
  if ((shift & ~kShift) != 0 || (SendMessageW(message.hwnd, WM_GETDLGCODE, 0, 0) & DLGC_WANTCHARS) == 0)
    return false;
  return !mdlPubSelf::IsCommandKey(static_cast<int>(message.wParam), shift) ||
         context_.letters.IsRunning(message.hwnd, message.time);
}

// The form gets every other key first, whichever control has the focus. True if the key goes no further.
bool MainWindow::PressKey(const MSG& message) {
  if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) return false;
  if (message.hwnd != context_.window && IsChild(context_.window, message.hwnd) == FALSE) return false;
  if (IsWindowEnabled(context_.window) == FALSE) return true;
  const int shift = HeldShiftKeys();
  if (IsLetterOrDigit(message.wParam) && IsForList(message, shift)) return false;
  frmPubMain.KeyDown(static_cast<int>(message.wParam), shift);
  const bool closes = message.wParam == VK_F4 && shift == kAlt;
  const bool selectsAll = message.wParam == 'A' && shift == kCtrl;
  return closes || (IsLetterOrDigit(message.wParam) && !selectsAll) || context_.window == nullptr;
}

void MainWindow::Flush() {
  context_.changes.Flush();
  GiveFocusBack();
  lastFlush_ = GetTickCount64();
}

// A control that had to give up the focus gets it back once it is enabled and visible. During a scan Cancel
// has it until then, so that Space presses it.
void MainWindow::GiveFocusBack() {
  const HWND control = context_.lostFocus;
  if (control == nullptr) return;
  const HWND focus = GetFocus();
  if (focus != context_.window && (context_.standIn == nullptr || focus != context_.standIn)) return;
  if (CanTakeFocus(control)) {
    context_.lostFocus = context_.standIn = nullptr;
    SetFocus(control);
  } else if (const HWND standIn = StandIn(); standIn != nullptr && standIn != focus) {
    context_.standIn = standIn;
    SetFocus(standIn);
  }
}

// The button that has the focus for the control that lost it. Null while none can take it.
HWND MainWindow::StandIn() const {
  if (IsWindowEnabled(context_.window) == FALSE) return nullptr;
  const auto cancel = reinterpret_cast<HWND>(frmPubMain.sbtCancel.hWnd);
  if (CanTakeFocus(cancel)) return cancel;
  // Scan is in the same place.
  const auto scan = reinterpret_cast<HWND>(frmPubMain.sbtScan.hWnd);
  return context_.lostFocus == cancel && CanTakeFocus(scan) ? scan : nullptr;
}

void MainWindow::Refresh() {
  if (context_.window == nullptr) return;
  Flush();
  RedrawWindow(context_.window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

// The system puts a grey picture in the place of a window whose thread hasn't looked for messages for five
// seconds. The thread looks for one that it doesn't take. Keys, clicks and whatever else was posted stay in
// the queue.
void MainWindow::KeepPainted() {
  if (context_.window == nullptr || GetTickCount64() - lastFlush_ < kPaintInterval) return;
  peeking_ = true;
  MSG message;
  PeekMessageW(&message, context_.window, WM_PAINT, WM_PAINT, PM_NOREMOVE | PM_QS_PAINT);
  peeking_ = false;
  Refresh();
}

// A look for messages delivers those that other programs send. Those that would run a handler wait in the
// queue.
bool MainWindow::Postpone(UINT message, WPARAM wParam, LPARAM lParam) const {
  return peeking_ && PostMessageW(context_.window, message, wParam, lParam) != FALSE;
}

void MainWindow::OnCommand(WindowBinding& control, int code) {
  const WPARAM command = MAKEWPARAM(GetDlgCtrlID(control.Window()), code);
  if (!Postpone(WM_COMMAND, command, reinterpret_cast<LPARAM>(control.Window()))) control.OnCommand(code);
}

void MainWindow::ShowForm() {
  ShowBounds();
  ShowState();
  ShowFocus();
}

// Enables or disables the window with all its controls. The focus returns to the control that had it.
void MainWindow::ShowState() {
  const bool enabled = frmPubMain.Enabled;
  if ((IsWindowEnabled(context_.window) != FALSE) == enabled) return;
  if (!enabled) RememberFocus();
  EnableWindow(context_.window, enabled ? TRUE : FALSE);
  if (enabled && GetActiveWindow() == context_.window) SetFocus(context_.window);
}

void MainWindow::RememberFocus() {
  const HWND focus = GetFocus();
  if (IsChild(context_.window, focus) != FALSE && focus != context_.standIn) context_.lostFocus = focus;
}

// Moves the focus where the program has put it.
void MainWindow::ShowFocus() {
  const Control* const wanted = frmPubMain.ActiveControl;
  if (wanted == nullptr || wanted->hWnd == 0) return;
  const auto window = reinterpret_cast<HWND>(wanted->hWnd);
  if (GetActiveWindow() == context_.window && GetFocus() != window && IsWindowVisible(window) != FALSE &&
      IsWindowEnabled(window) != FALSE) {
    SetFocus(window);
  }
}

// The user may have moved the window, so it is moved only when the form's bounds have changed.
void MainWindow::ShowBounds() {
  const MainForm& form = frmPubMain;
  const RECT bounds{form.Left, form.Top, form.Left + form.Width, form.Top + form.Height};
  if (EqualRect(&bounds, &bounds_) != FALSE) return;
  bounds_ = bounds;
  // A window that had to be made smaller has the same middle.
  const int dpi = windows::LayoutDpi(windows::DpiOf(context_.window));
  const auto start = [&](int from, int length) {
    return MulDiv(2 * from + length, dpi, 2 * 1440) - context_.Pixels(length) / 2;
  };
  Place({start(form.Left, form.Width), start(form.Top, form.Height)});
}

// The window has no frame to pull it back by, so all of it is put into the work area, unless the user is just
// pulling it.
void MainWindow::Place(POINT corner) {
  const SIZE size{context_.Pixels(frmPubMain.Width), context_.Pixels(frmPubMain.Height)};
  work_ = windows::MonitorOf(context_.window).rcWork;
  if (!moving_) corner = windows::Within(work_, corner, size);
  SetWindowPos(context_.window, nullptr, corner.x, corner.y, size.cx, size.cy, SWP_NOZORDER | SWP_NOACTIVATE);
}

// Where the user has left the window, it stays as long as its size and the work area do.
void MainWindow::PlaceAgain() {
  RECT place;
  GetWindowRect(context_.window, &place);
  const RECT work = windows::MonitorOf(context_.window).rcWork;
  const bool same = EqualRect(&work, &work_) != FALSE &&
                    place.right - place.left == context_.Pixels(frmPubMain.Width) &&
                    place.bottom - place.top == context_.Pixels(frmPubMain.Height);
  if (!same) Place({place.left, place.top});
}

// A job further down the stack may still change the models until it sees the cancel, so all bindings are
// detached. They are not destroyed: a handler of one of them may be running.
void MainWindow::Unload() {
  if (unloading_) return;
  unloading_ = true;
  mdlPubSelf::CancelRequested = true;
  mdlPubSelf::Form_Unload();
  frmPubMain.hWnd = 0;
  formBinding_->Detach();
  loader_->Detach();
  controls_.Detach();
  DestroyWindow(context_.window);
}

std::optional<LRESULT> MainWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_MOUSEMOVE:
      return background_.MouseMove(PointOf(lParam), HeldButtons(wParam)), 0;
    case WM_ACTIVATE:
      return OnActivate(wParam), 0;
    case WM_ENTERSIZEMOVE:
    case WM_EXITSIZEMOVE:
      moving_ = message == WM_ENTERSIZEMOVE;
      work_ = windows::MonitorOf(context_.window).rcWork;
      return 0;
    case WM_SIZE:
      // While it was minimized, it may have got another size.
      if (std::exchange(minimized_, wParam == SIZE_MINIMIZED) && wParam == SIZE_RESTORED) PlaceAgain();
      return 0;
    case WM_TIMER:
      return loader_->OnTimer(wParam), 0;
    case WM_CLOSE:
      if (!Postpone(message, wParam, lParam)) frmPubMain.Unload();
      return 0;
    case WM_ENDSESSION:
      if (wParam != FALSE) frmPubMain.Unload();
      return 0;
    case WM_DESTROY:
      return PostQuitMessage(0), 0;
    default:
      return std::nullopt;
  }
}

// While another program is in front, the control in focus is remembered.
void MainWindow::OnActivate(WPARAM wParam) {
  if (LOWORD(wParam) == WA_INACTIVE) {
    RememberFocus();
  } else if (HIWORD(wParam) == 0) {
    SetFocus(context_.window);
    GiveFocusBack();
  }
}

}  // namespace tavix::win32
