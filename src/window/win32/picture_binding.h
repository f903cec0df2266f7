#pragma once

#include "window/win32/push_binding.h"

namespace tavix::win32 {

// A picture that is pressed: a page or a button of the title strip. The current page has a frame around it.
class PictureBinding : public PushBinding {
 public:
  // `ground` is what shows around a picture smaller than its control.
  PictureBinding(PictureBox& model, WindowContext& context, int id, COLORREF ground)
      : PushBinding(model, context, id, NameOf(model)), model_(model), ground_(ground) {}

 protected:
  void Show() override;
  void OnPress() override;
  void OnMouseMove(int buttons) override { model_.MouseMove(buttons); }
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;
  void Paint(HDC context, const RECT& area, UINT state) override;

 private:
  static const Text& NameOf(const PictureBox& model);

  PictureBox& model_;
  COLORREF ground_;
  Text picture_;  // the last one that there was
};

}  // namespace tavix::win32
