#pragma once

#include "window/win32/window_binding.h"

namespace tavix::win32 {

// A control with a line around it, which is of another colour while it has the focus.
class FramedBinding : public WindowBinding {
 protected:
  using WindowBinding::WindowBinding;
  // WindowBinding::Create with room for the line.
  void CreateFramed(int id, const wchar_t* className, DWORD style, TextView name = {}) {
    Create(id, className, WS_TABSTOP | WS_BORDER | style, name);
  }
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  void PaintFrame() const;
};

}  // namespace tavix::win32
