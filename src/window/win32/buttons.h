#pragma once

#include "controls/option_button.h"
#include "window/win32/window_binding.h"

// All that is pressed or ticked.
namespace tavix::win32 {

//--- Push buttons

// What can be pressed: an owner-drawn button of the system. Mouse, space and Enter press it.
class PushBinding : public WindowBinding {
 public:
  void OnCommand(int code) override;

 protected:
  PushBinding(Control& model, WindowContext& context, int id, ControlName name)
      : WindowBinding(model, context, std::move(name)) {
    Create(id, L"BUTTON", BS_OWNERDRAW | WS_TABSTOP);
  }
  virtual void OnPress() = 0;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  // Whether the mouse is over it.
  bool IsHot() const { return hot_; }

 private:
  void SetHot(bool hot);
  bool hot_ = false;
};

class ButtonBinding : public PushBinding {
 public:
  ButtonBinding(Button& model, WindowContext& context, int id, bool accented = false)
      : PushBinding(model, context, id, CaptionName(model.Caption)), model_(model), accented_(accented) {}

 protected:
  void OnPress() override { model_.Click(); }
  void Paint(HDC canvas, const RECT& area, UINT state) override;

 private:
  Button& model_;
  bool accented_;
};

// A label that is clicked like a link.
class LinkBinding : public PushBinding {
 public:
  LinkBinding(Label& model, WindowContext& context, int id);

 protected:
  void OnPress() override { model_.Click(); }
  void Paint(HDC canvas, const RECT& area, UINT state) override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  Label& model_;
};

// A picture that is pressed: a page, or a button of the title strip. The current page has an outline.
class PictureBinding : public PushBinding {
 public:
  // `back` is the colour around a picture smaller than its control.
  PictureBinding(PictureBox& model, WindowContext& context, int id, COLORREF Palette::*back);

 protected:
  void Show() override;
  void OnPress() override;
  void OnMouseMove(int buttons) override { model_.MouseMove(buttons); }
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void Paint(HDC canvas, const RECT& area, UINT state) override;

 private:
  LRESULT OnKey(UINT message, WPARAM wParam, LPARAM lParam);

  PictureBox& model_;
  COLORREF Palette::*back_;
  Text picture_;  // the last key that had a picture
};

//--- Check boxes

// In a dialog, the caption marks the letter that presses the box.
enum class CheckBoxStyle { kMainWindow, kDialog };

// Clicks change the model only; the shown tick follows it.
class CheckBoxBinding : public PaintedBinding {
 public:
  CheckBoxBinding(CheckBox& model, WindowContext& context, int id, CheckBoxStyle style);
  void OnCommand(int code) override;
  HBRUSH OnColors(HDC context) override;

 protected:
  void Show() override;
  void Paint(HDC canvas, const RECT& area, UINT state) override;

 private:
  CheckBox& model_;
  CheckBoxStyle style_;
};

//--- Option buttons

// One button of a group. Arrow keys move the choice; the focus alone doesn't. Clicks change the model only,
// and the check state follows it.
class OptionButtonBinding : public PaintedBinding {
 public:
  // The first button of a group begins it.
  OptionButtonBinding(OptionButton& model, WindowContext& context, int id, bool first);
  void OnCommand(int code) override;
  // What a click does.
  void Press() { model_.SetValue(true); }

 protected:
  void Show() override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void Paint(HDC canvas, const RECT& area, UINT state) override;

 private:
  void ChooseNext(bool backwards);

  OptionButton& model_;
};

}  // namespace tavix::win32
