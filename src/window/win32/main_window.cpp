// clang-format off
#include "window/win32/main_window.h"
#include <commctrl.h>
// clang-format on

#include "forms/main_form.h"
#include "forms/type_form.h"
#include "frame/start_up.h"
#include "scan/scan_driver.h"
#include "window/layout.h"
#include "window/win32/control_ids.h"
#include "window/win32/popup_menu.h"

namespace tavix::win32 {
namespace {

// Changes within so many milliseconds of a long job are shown together.
constexpr ULONGLONG kFrameTime = 16;

int ShiftState() {
  const auto held = [](int key, int mask) { return GetKeyState(key) < 0 ? mask : 0; };
  return held(VK_SHIFT, kShift) | held(VK_CONTROL, kCtrl) | held(VK_MENU, kAlt);
}

// Keys that never reach a control: there they would search the list.
bool IsLetterOrDigit(WPARAM key) { return (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9'); }

}  // namespace

MainWindow::FrameBinding::FrameBinding(MainWindow& owner)
    : Binding(frmPubMain, owner.context_.changes), owner_(owner) {}

void MainWindow::FrameBinding::Apply() {
  owner_.Place();
  owner_.ShowState();
  owner_.ShowFocus();
}

MainWindow::MainWindow() = default;

MainWindow::~MainWindow() {
  frmPubMain.Refresh = nullptr;
  frmPubMain.Minimize = nullptr;
  frmPubMain.Unload = nullptr;
  mdlPubSelf::frameSteps.MakeControls = nullptr;
  frmPubType.menr.Popup = nullptr;
  frmPubType.menh.Popup = nullptr;
  if (context_.window == nullptr) return;
  frmPubMain.hWnd = 0;
  for (const auto& binding : bindings_) binding->Detach();
  DestroyWindow(context_.window);
}

bool MainWindow::Create() {
  MakeDrawingTools(context_);
  context_.form = &frmPubMain;
  MakeClassKnown(kMainWindowClass);
  context_.window = CreateWindowExW(WS_EX_APPWINDOW | WS_EX_CONTROLPARENT, kMainWindowClass, L"Tavix",
                                    WS_POPUP | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN, 0, 0, 0, 0,
                                    nullptr, nullptr, GetModuleHandleW(nullptr), Parameter());
  if (context_.window == nullptr) return false;
  context_.toolTips =
      CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0,
                      0, 0, context_.window, nullptr, GetModuleHandleW(nullptr), nullptr);
  SendMessageW(context_.toolTips, TTM_SETMAXTIPWIDTH, 0, context_.Pixels(6000));
  frmPubMain.hWnd = reinterpret_cast<intptr_t>(context_.window);
  frame_ = std::make_unique<FrameBinding>(*this);
  loader_ = std::make_unique<TimerBinding>(frmPubMain.timLoader, context_, kLoaderTimer);
  frmPubMain.Refresh = [this] { Refresh(); };
  frmPubMain.Minimize = [this] { ShowWindow(context_.window, SW_MINIMIZE); };
  frmPubMain.Unload = [this] { Unload(); };
  mdlPubSelf::frameSteps.MakeControls = [this] { MakeControls(); };
  for (Menu* menu : {&frmPubType.menr, &frmPubType.menh})
    menu->Popup = [this, menu] { PopUp(context_, *menu); };
  return true;
}

// In a window that has its size and in their own places, so that nothing is moved before it is first seen.
void MainWindow::MakeControls() {
  FitTexts([this](TextView text) { return TextWidth(context_, text); });
  Place();
  bindings_ = BindMainForm(context_);
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
  if (context_.window != nullptr && GetTickCount64() - lastFlush_ >= kFrameTime) Flush();
  MSG message;
  // The end of the program is left in the queue for Run.
  while (context_.window != nullptr && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE)
    Handle(message);
}

void MainWindow::Handle(MSG& message) {
  if (PressKey(message) || IsDialogMessageW(context_.window, &message) != FALSE) return;
  TranslateMessage(&message);
  DispatchMessageW(&message);
}

// Every key is the form's first, whichever control has the focus.
bool MainWindow::PressKey(const MSG& message) {
  if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) return false;
  if (message.hwnd != context_.window && IsChild(context_.window, message.hwnd) == FALSE) return false;
  if (IsWindowEnabled(context_.window) == FALSE) return true;
  const int shift = ShiftState();
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

// A control that had to give up the focus gets it again when it can be used again.
void MainWindow::GiveFocusBack() {
  const HWND control = context_.lostFocus;
  if (control == nullptr || IsWindowEnabled(control) == FALSE || IsWindowVisible(control) == FALSE) return;
  context_.lostFocus = nullptr;
  if (GetFocus() == context_.window) SetFocus(control);
}

void MainWindow::Refresh() {
  if (context_.window == nullptr) return;
  Flush();
  RedrawWindow(context_.window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
}

// The window, and with it all that lies in it, is in reach or not; the focus comes back to where it was.
void MainWindow::ShowState() {
  const bool enabled = frmPubMain.Enabled;
  if ((IsWindowEnabled(context_.window) != FALSE) == enabled) return;
  if (!enabled && IsChild(context_.window, GetFocus()) != FALSE) context_.lostFocus = GetFocus();
  EnableWindow(context_.window, enabled ? TRUE : FALSE);
  if (enabled && GetActiveWindow() == context_.window) SetFocus(context_.window);
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

// The user may have moved the window: it is placed anew only where the program has.
void MainWindow::Place() {
  const MainForm& form = frmPubMain;
  const RECT place{form.Left, form.Top, form.Left + form.Width, form.Top + form.Height};
  if (EqualRect(&place, &place_) != FALSE) return;
  place_ = place;
  SetWindowPos(context_.window, nullptr, context_.Pixels(form.Left), context_.Pixels(form.Top),
               context_.Pixels(form.Width), context_.Pixels(form.Height), SWP_NOZORDER | SWP_NOACTIVATE);
}

// A job that is under way below on the stack runs on over the models until it sees the cancel; from here on
// no binding listens to it. The bindings themselves stay, since one of them may be at work.
void MainWindow::Unload() {
  if (unloading_) return;
  unloading_ = true;
  mdlPubSelf::CancelRequested = true;
  mdlPubSelf::Form_Unload();
  frmPubMain.hWnd = 0;
  frame_->Detach();
  loader_->Detach();
  for (const auto& binding : bindings_) binding->Detach();
  DestroyWindow(context_.window);
}

}  // namespace tavix::win32
