#pragma once

#include "window/win32/buttons.h"

namespace tavix::win32 {

// A name in the title picture that leads to a site. Its caption is for screen readers only: what is seen is
// that part of the picture.
class TitleLinkBinding : public LinkBinding {
 public:
  TitleLinkBinding(Label& model, WindowContext& context, int id, const PictureBox& title);

 protected:
  void OnPress() override { model_.MouseUp(kLeftButton); }
  void Paint(HDC canvas, const RECT& area, UINT state) override;

 private:
  Label& model_;
  const PictureBox& title_;
};

}  // namespace tavix::win32
