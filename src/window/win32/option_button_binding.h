#pragma once

#include "controls/option_button.h"
#include "window/win32/window_binding.h"

namespace tavix::win32 {

// One button of a group; the first one of a group begins it. Arrow keys move the choice, the focus alone
// doesn't.
class OptionButtonBinding : public WindowBinding {
 public:
  OptionButtonBinding(OptionButton& model, WindowContext& context, int id, bool first);
  void OnCommand(int code) override;
  // What a click does.
  void Press() { model_.SetValue(true); }

 protected:
  void Show() override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  LRESULT Paint();

  OptionButton& model_;
};

}  // namespace tavix::win32
