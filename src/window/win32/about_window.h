#pragma once

#include <memory>
#include <vector>

#include "window/win32/window_owner.h"

namespace tavix::win32 {

// The real about window: it gives `ShowModal` and `Unload` of frmPubAbout their bodies. One of it at a time.
class AboutWindow : private WindowOwner {
 public:
  AboutWindow();
  AboutWindow(const AboutWindow&) = delete;
  ~AboutWindow();

 private:
  WindowContext& Context() override { return *context_; }
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;
  void OnPaint(HDC screen, const RECT& area) override;

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
