#pragma once

#include <optional>

#include "platform/event_queue.h"
#include "window/win32/background.h"
#include "window/win32/binding_list.h"
#include "window/win32/window_owner.h"

namespace tavix::win32 {

// Makes the controls of the main window and ties each to its model, in tab order. What lies in front comes
// first.
void AddMainFormControls(BindingList& controls);

// A timer of a window. OnTimer takes the WM_TIMER messages.
class TimerBinding : public Binding {
 public:
  TimerBinding(Timer& model, WindowContext& context, UINT_PTR id)
      : Binding(model, context.changes), model_(model), context_(context), id_(id) {}
  void Apply() override;
  // Drops a tick that was queued before the timer stopped.
  void OnTimer(UINT_PTR id) {
    if (id == id_ && model_.Interval > 0) model_.Tick();
  }

 private:
  Timer& model_;
  WindowContext& context_;
  UINT_PTR id_;
  int interval_ = 0;
};

// The real main window. It shows frmPubMain, passes the user's keys and clicks on to it, and gives its
// `Refresh`, `Minimize` and `Unload` their bodies. One of it at a time.
class MainWindow final : private WindowOwner {
 public:
  MainWindow() = default;
  MainWindow(const MainWindow&) = delete;
  ~MainWindow();

  // Makes the window, hidden and empty. Its controls are made by the start's step for them, after the form
  // has been laid out. False when the system refuses.
  bool Create();
  // Shows the form, whose controls have been made.
  void Open();
  // Handles messages until the window has gone. Returns the program's exit status.
  int Run();
  // Handles the messages that are waiting.
  void HandleWaiting();

 private:
  WindowContext& Context() override { return context_; }
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnPaint(HDC canvas, const RECT&) override { background_.Paint(canvas); }
  void OnCommand(WindowBinding& control, int code) override;
  void OnActivate(WPARAM wParam);
  void OnNewLook(int monitorDpi, const RECT* suggested) override;

  void MakeControls();
  void Handle(MSG& message);
  bool PressKey(const MSG& message);
  bool IsForList(const MSG& message, int shift) const;
  void Flush();
  void Refresh();
  void KeepPainted();
  bool Postpone(UINT message, WPARAM wParam, LPARAM lParam) const;
  void Unload();
  void ShowForm();
  void FitScreen(int monitorDpi);
  void ShowBounds();
  void Place(POINT corner);
  void PlaceAgain();
  void ShowState();
  void ShowFocus();
  void GiveFocusBack();
  HWND StandIn() const;
  void RememberFocus();

  WindowContext context_;
  Background background_{context_};
  std::optional<FunctionBinding> formBinding_;
  BindingList controls_{context_};
  std::optional<TimerBinding> loader_;
  RECT bounds_{};        // of the form, in twips, as they were shown last
  RECT work_{};          // the work area when the window was placed or moved last
  bool moving_ = false;  // the user is moving it
  bool minimized_ = false;
  bool unloading_ = false;
  bool peeking_ = false;     // looks for messages on behalf of a job that serves no input
  ULONGLONG lastFlush_ = 0;  // in milliseconds since the system started
};

// The messages of the main window. It is platform::eventQueue while it lives.
class EventQueueWin32 : public platform::EventQueue {
 public:
  explicit EventQueueWin32(MainWindow& window) : window_(window) { platform::eventQueue = this; }
  EventQueueWin32(const EventQueueWin32&) = delete;
  ~EventQueueWin32() override { platform::eventQueue = platform::noEventQueue; }
  void Yield() override { window_.HandleWaiting(); }

 private:
  MainWindow& window_;
};

}  // namespace tavix::win32
