#pragma once

#include "window/win32/check_box_binding.h"

namespace tavix::win32 {

// A check box whose caption marks the letter that is pressed with Alt.
class DialogCheckBinding : public CheckBoxBinding {
 public:
  DialogCheckBinding(CheckBox& model, WindowContext& context, int id)
      : CheckBoxBinding(model, context, id), model_(model) {}

 protected:
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  CheckBox& model_;
};

}  // namespace tavix::win32
