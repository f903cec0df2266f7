#pragma once

#include "window/win32/window_binding.h"

namespace tavix::win32 {

class CheckBoxBinding : public WindowBinding {
 public:
  CheckBoxBinding(CheckBox& model, WindowContext& context, int id);
  void OnCommand(int code) override;
  HBRUSH OnColors(HDC context) override;

 protected:
  void Show() override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  LRESULT Paint();

  CheckBox& model_;
};

}  // namespace tavix::win32
