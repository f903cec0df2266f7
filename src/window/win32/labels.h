#pragma once

#include "controls/frame.h"
#include "window/win32/window_binding.h"

// All that is only looked at.
namespace tavix::win32 {

//--- Labels

struct LabelStyle {
  COLORREF Palette::*back = &Palette::background;
  COLORREF Palette::*text = &Palette::text;
  Font WindowContext::*font = &WindowContext::font;
  UINT format = DT_LEFT | DT_WORDBREAK;  // as DrawText takes it
  bool mnemonic = false;  // an ampersand marks the letter that leads to the next control; on one line
};
constexpr LabelStyle kPanelLabel{.back = &Palette::panel};
constexpr LabelStyle kSumLabel{.back = &Palette::panel, .format = DT_RIGHT | DT_SINGLELINE};
constexpr LabelStyle kTitleStripLabel{
    .back = &Palette::title, .text = &Palette::titleText, .format = DT_RIGHT | DT_SINGLELINE};
constexpr LabelStyle kDialogLabel{.mnemonic = true};
constexpr LabelStyle kDialogNote{.text = &Palette::noteText, .format = DT_LEFT | DT_VCENTER | DT_SINGLELINE};
constexpr LabelStyle kDialogRemark{.text = &Palette::noteText};
constexpr LabelStyle kDialogTitle{.font = &WindowContext::titleFont, .format = DT_LEFT | DT_SINGLELINE};

// Mouse clicks go through it to what lies below.
class LabelBinding : public WindowBinding {
 public:
  // A label that lies on a picture shows that part of it, above the back colour.
  LabelBinding(Label& model, WindowContext& context, int id, const LabelStyle& style,
               const PictureBox* below = nullptr);

 protected:
  void Paint(HDC canvas, const RECT& area, UINT state) override;

 private:
  Label& model_;
  const LabelStyle& style_;
  const PictureBox* below_;
};

//--- Pictures

class ImageBinding : public WindowBinding {
 public:
  ImageBinding(PictureBox& model, WindowContext& context, int id);

 protected:
  void Show() override;
  void Paint(HDC canvas, const RECT& area, UINT state) override;

 private:
  PictureBox& model_;
  Text picture_;  // the last key that had a picture
};

//--- Groups

// The title of a group of controls, with a line after it.
class GroupBinding : public PaintedBinding {
 public:
  GroupBinding(Frame& model, WindowContext& context, int id);

 protected:
  void Paint(HDC canvas, const RECT& area, UINT state) override;

 private:
  Frame& model_;
};

//--- Progress bar

// One label is the bar; the other is its fill and the percentage. Both are shown by the bar's window. The
// percentage stands in the fill, once that is wide enough for it.
class ProgressBinding : public WindowBinding {
 public:
  ProgressBinding(Label& bar, WindowContext& context, int id, Label& fill);
  void Detach() override;

 protected:
  void Show() override { Redraw(); }
  void Paint(HDC canvas, const RECT& area, UINT state) override;

 private:
  Label& bar_;
  Label& fill_;
  FunctionBinding fillChanges_;
};

}  // namespace tavix::win32
