#pragma once

#include "window/win32/window_binding.h"

namespace tavix::win32 {

// What can be pressed: a button of the system that is painted by us. Mouse, space and Enter press it.
class PushBinding : public WindowBinding {
 public:
  void OnCommand(int code) override;

 protected:
  PushBinding(Control& model, WindowContext& context, int id) : WindowBinding(model, context) {
    Create(id, L"BUTTON", BS_OWNERDRAW | WS_TABSTOP);
  }
  virtual void OnPress() = 0;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;
};

class ButtonBinding : public PushBinding {
 public:
  ButtonBinding(Button& model, WindowContext& context, int id, bool accented = false)
      : PushBinding(model, context, id), model_(model), accented_(accented) {}
  void OnDraw(const DRAWITEMSTRUCT& draw) override;

 protected:
  void Show() override { SetName(model_.Caption.Get()); }
  void OnPress() override { model_.Click(); }

 private:
  Button& model_;
  bool accented_;
};

// A label that is clicked like a link.
class LinkBinding : public PushBinding {
 public:
  LinkBinding(Label& model, WindowContext& context, int id)
      : PushBinding(model, context, id), model_(model) {}
  void OnDraw(const DRAWITEMSTRUCT& draw) override;

 protected:
  void Show() override { SetName(model_.Caption.Get()); }
  void OnPress() override { model_.Click(); }

 private:
  Label& model_;
};

// A picture that is pressed: a page or a button of the title strip.
class PictureBinding : public PushBinding {
 public:
  // `name` is what readers of the screen say where the model has no name of its own; `sign` stands for the
  // picture.
  PictureBinding(PictureBox& model, WindowContext& context, int id, TextView name, TextView sign,
                 bool onTitle);
  void OnDraw(const DRAWITEMSTRUCT& draw) override;

 protected:
  void Show() override;
  void OnPress() override { model_.MouseUp(kLeftButton); }
  void OnMouseMove(int buttons) override { model_.MouseMove(buttons); }
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  PictureBox& model_;
  Text name_, sign_;
  bool onTitle_;
};

}  // namespace tavix::win32
