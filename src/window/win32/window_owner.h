#pragma once

#include "window/win32/window_binding.h"

namespace tavix::win32 {

// Shows a form in a window of its own. It passes messages about a control to its binding, and the others to
// the class derived from this.
class WindowOwner {
 protected:
  ~WindowOwner() = default;

  // Registers a window class; again does no harm. CreateWindowEx takes Parameter() as its last argument.
  static void RegisterWindowClass(const wchar_t* name);
  void* Parameter() { return this; }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  // Its `window` is null before the window is made and after it has gone.
  virtual WindowContext& Context() = 0;
  // Without a result, the system handles the message.
  virtual std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;
  // Paints what no control covers.
  virtual void OnPaint(HDC canvas, const RECT& area) = 0;
  virtual void OnCommand(WindowBinding& control, int code) { control.OnCommand(code); }
  // Colours, fonts, lengths or screens of the system may have changed, and the monitor has this resolution.
  // `suggested` is where the system would put the window; null without a wish.
  virtual void OnNewLook(int monitorDpi, const RECT* suggested) = 0;

  std::optional<LRESULT> HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void TellControls(UINT message, WPARAM wParam, LPARAM lParam);
  void ChangeLook(int monitorDpi, const RECT* suggested);
};

}  // namespace tavix::win32
