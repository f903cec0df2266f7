#pragma once

#include <memory>
#include <vector>

#include "window/win32/bind_main_form.h"
#include "window/win32/ground.h"
#include "window/win32/timer_binding.h"
#include "window/win32/window_owner.h"

namespace tavix::win32 {

// The real main window: it shows frmPubMain, passes the user's keys and clicks on to it, and gives its
// `Refresh`, `Minimize` and `Unload` their bodies. One of it at a time.
class MainWindow : private WindowOwner {
 public:
  MainWindow();
  MainWindow(const MainWindow&) = delete;
  ~MainWindow();

  // Makes the window, still hidden and empty; its controls are made when the form has been laid out, by the
  // step of the start that is for them. False when the system refuses.
  bool Create();
  // Shows the form, whose controls have been made.
  void Open();
  // Handles messages until the window has gone; the program's exit status.
  int Run();
  // Handles the messages that are waiting.
  void HandleWaiting();

 private:
  WindowContext& Context() override { return context_; }
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;
  void OnPaint(HDC screen, const RECT& area) override { ground_.Paint(screen, area); }
  void OnActivate(WPARAM wide);

  void MakeControls();
  void Handle(MSG& message);
  bool PressKey(const MSG& message);
  void Flush();
  void Refresh();
  void Unload();
  void Place();
  void ShowState();
  void ShowFocus();
  void GiveFocusBack();

  // The window itself, as a control of the system is.
  class FrameBinding : public Binding {
   public:
    explicit FrameBinding(MainWindow& owner);
    void Apply() override;

   private:
    MainWindow& owner_;
  };

  WindowContext context_;
  Ground ground_{context_};
  std::unique_ptr<FrameBinding> frame_;
  std::vector<std::unique_ptr<WindowBinding>> bindings_;
  std::unique_ptr<TimerBinding> loader_;
  RECT place_{};  // of the model, in twips, as it was shown last
  bool unloading_ = false;
  ULONGLONG lastFlush_ = 0;  // in the milliseconds of the system's uptime
};

}  // namespace tavix::win32
