#pragma once

#include "window/win32/window_binding.h"

namespace tavix::win32 {

// What can be pressed: a button of the system that is painted by us. Mouse, space and Enter press it.
class PushBinding : public WindowBinding {
 public:
  void OnCommand(int code) override;
  void OnDraw(const DRAWITEMSTRUCT& draw) override;

 protected:
  PushBinding(Control& model, WindowContext& context, int id, TextView name) : WindowBinding(model, context) {
    Create(id, L"BUTTON", BS_OWNERDRAW | WS_TABSTOP, name);
  }
  virtual void OnPress() = 0;
  // Paints the whole area in a state (ODS_...).
  virtual void Paint(HDC context, const RECT& area, UINT state) = 0;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;
  bool IsHot() const { return hot_; }  // the mouse is over it

 private:
  void Heat(bool hot);
  bool hot_ = false;
};

class ButtonBinding : public PushBinding {
 public:
  ButtonBinding(Button& model, WindowContext& context, int id, bool accented = false)
      : PushBinding(model, context, id, model.Caption.Get()), model_(model), accented_(accented) {}

 protected:
  void Show() override { SetName(model_.Caption.Get()); }
  void OnPress() override { model_.Click(); }
  void Paint(HDC context, const RECT& area, UINT state) override;

 private:
  Button& model_;
  bool accented_;
};

// A label that is clicked like a link.
class LinkBinding : public PushBinding {
 public:
  LinkBinding(Label& model, WindowContext& context, int id)
      : PushBinding(model, context, id, model.Caption.Get()), model_(model) {}

 protected:
  void Show() override { SetName(model_.Caption.Get()); }
  void OnPress() override { model_.Click(); }
  void Paint(HDC context, const RECT& area, UINT state) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  Label& model_;
};

}  // namespace tavix::win32
