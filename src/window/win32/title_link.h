#pragma once

#include "window/win32/buttons.h"

namespace tavix::win32 {

// Whether the picture shows the name that a link stands for.
enum class TitleName { kInPicture, kMissing };

// A place in the title picture that leads to a site. Where the picture has no name, the link shows its
// caption while it has the focus or the mouse is over it.
class TitleLinkBinding : public LinkBinding {
 public:
  TitleLinkBinding(Label& model, WindowContext& context, int id, const PictureBox& title, TitleName name);

 protected:
  void OnPress() override { model_.MouseUp(kLeftButton); }
  void Paint(HDC canvas, const RECT& area, UINT state) override;

 private:
  Label& model_;
  const PictureBox& title_;
  TitleName name_;
};

}  // namespace tavix::win32
