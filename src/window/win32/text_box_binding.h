#pragma once

#include "controls/text_box.h"
#include "window/win32/window_binding.h"

namespace tavix::win32 {

// A line of text to edit. For its model, a box keeps the focus while another window is in front.
// `boxLeft` of the context hears when another control of the same window takes the focus.
class TextBoxBinding : public OutlinedBinding {
 public:
  // A box needs a name unless the label before it names it.
  TextBoxBinding(TextBox& model, WindowContext& context, int id, ControlName name = {});
  void OnCommand(int code) override;
  HBRUSH OnColors(HDC context) override;
  // Tells the model that it has lost the focus. False if the form has given it back to the box: its active
  // control is the box again.
  bool Leave();

 protected:
  void Show() override;
  void ShowLook() override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;

 private:
  Text ShownText() const;
  void ReadSelection();
  std::optional<LRESULT> OnChar(WPARAM character, LPARAM lParam);
  LRESULT ShrinkToClientArea(RECT& area) const;
  COLORREF BackColor() const;

  TextBox& model_;
  bool showing_ = false;  // changes are the program's, not the user's
  bool inFocus_ = false;
  int start_ = 0, length_ = 0;  // the model's selection as it was shown or read last
};

}  // namespace tavix::win32
