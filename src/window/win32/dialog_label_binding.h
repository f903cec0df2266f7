#pragma once

#include "window/win32/label_binding.h"

namespace tavix::win32 {

// A label on the ground of a modal window. A plain one marks the letter that leads to the control behind it.
class DialogLabelBinding : public LabelBinding {
 public:
  enum class Look { kPlain, kNote, kRemark, kTitle };
  DialogLabelBinding(Label& model, WindowContext& context, int id, Look look = Look::kPlain);
  void OnDraw(const DRAWITEMSTRUCT& draw) override;

 private:
  Label& model_;
  Look look_;
  Font title_;
};

}  // namespace tavix::win32
