#pragma once

#include "window/win32/window_binding.h"

namespace tavix::win32 {

// A picture that is only looked at.
class ImageBinding : public WindowBinding {
 public:
  ImageBinding(PictureBox& model, WindowContext& context, int id)
      : WindowBinding(model, context), model_(model) {
    Create(id, L"STATIC", SS_OWNERDRAW);
  }
  void OnDraw(const DRAWITEMSTRUCT& draw) override;

 protected:
  void Show() override;

 private:
  PictureBox& model_;
  Text picture_;  // the last one that there was
};

}  // namespace tavix::win32
