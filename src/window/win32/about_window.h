#pragma once

#include <memory>
#include <vector>

#include "window/win32/window_binding.h"

namespace tavix::win32 {

// The real about window: it gives `ShowModal` and `Unload` of frmPubAbout their bodies. One of it at a time.
class AboutWindow {
 public:
  AboutWindow();
  AboutWindow(const AboutWindow&) = delete;
  ~AboutWindow();

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM longer);
  LRESULT OnMessage(UINT message, WPARAM wide, LPARAM longer);
  void OnCommand(LPARAM longer, int code);
  void OnDraw(const DRAWITEMSTRUCT& draw);
  void OnPaint();
  LRESULT OnGone(WPARAM wide, LPARAM longer);

  void ShowModal();
  bool Create(HWND owner);
  void BindControls();
  void Run();
  void Unload();

  std::unique_ptr<WindowContext> context_;
  std::vector<std::unique_ptr<WindowBinding>> bindings_;
  HWND owner_ = nullptr;
};

}  // namespace tavix::win32
