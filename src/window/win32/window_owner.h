#pragma once

#include "window/win32/window_binding.h"

namespace tavix::win32 {

// Who shows a form in a window of its own. The messages that are for a control go to its binding, and the
// rest to those derived from this.
class WindowOwner {
 protected:
  ~WindowOwner() = default;

  // Makes a class for windows of ours known to the system, once or again. CreateWindowEx is given Parameter()
  // as its last argument.
  static void MakeClassKnown(const wchar_t* name);
  void* Parameter() { return this; }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM longer);
  // Its window is null until there is one, and after it has gone.
  virtual WindowContext& Context() = 0;
  // Nothing for a message that the system is to handle.
  virtual std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) = 0;
  virtual void OnPaint(HDC screen, const RECT& area) = 0;
  virtual void OnCommand(WindowBinding& control, int code) { control.OnCommand(code); }

  std::optional<LRESULT> Answer(UINT message, WPARAM wide, LPARAM longer);
  void Paint();
};

}  // namespace tavix::win32
