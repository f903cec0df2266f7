#pragma once

#include "window/win32/window_binding.h"

namespace tavix::win32 {

// A label of plain text. It lets the mouse through to what lies behind it.
class LabelBinding : public WindowBinding {
 public:
  // `format` says how the text is aligned, as DrawText has it.
  LabelBinding(Label& model, WindowContext& context, int id, UINT format = DT_LEFT | DT_WORDBREAK);
  void OnDraw(const DRAWITEMSTRUCT& draw) override;

 protected:
  void Show() override;
  virtual COLORREF TextColor() const { return context_.colors.text; }
  // Fills what lies behind the text.
  virtual void DrawGround(HDC context, const RECT& area);

 private:
  Label& model_;
  UINT format_;
};

// A label on the title strip.
class TitleLabelBinding : public LabelBinding {
 public:
  TitleLabelBinding(Label& model, WindowContext& context, int id, PictureBox& title)
      : LabelBinding(model, context, id, DT_RIGHT | DT_SINGLELINE), model_(model), title_(title) {}

 protected:
  COLORREF TextColor() const override { return context_.colors.titleText; }
  void DrawGround(HDC context, const RECT& area) override;

 private:
  Label& model_;
  PictureBox& title_;
};

}  // namespace tavix::win32
