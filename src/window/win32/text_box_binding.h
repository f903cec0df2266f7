#pragma once

#include "controls/text_box.h"
#include "window/win32/framed_binding.h"

namespace tavix::win32 {

class TextBoxBinding;

// Hears that the focus has moved from a box to another control of its window.
class BoxListener {
 public:
  virtual ~BoxListener() = default;
  virtual void OnBoxLeft(TextBoxBinding& box) = 0;
};

// A line of text to edit. A box keeps the focus in the sense of its model while another window is in front.
class TextBoxBinding : public FramedBinding {
 public:
  // A box without a label in front of it is named by a caption.
  TextBoxBinding(TextBox& model, WindowContext& context, int id, BoxListener& listener,
                 const Property<Text>* caption = nullptr);
  void OnCommand(int code) override;
  HBRUSH OnColors(HDC context) override;
  // Tells the model that the focus is gone. True when it lets it go: the form's active control isn't the box
  // again.
  bool Leave();

 protected:
  void Show() override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  void ShowName();
  void ReadSelection();
  void ReadText();
  std::optional<LRESULT> Type(WPARAM character, LPARAM longer);
  LRESULT MakeRoom(RECT& place) const;
  LRESULT PaintAround();
  COLORREF Back() const;

  TextBox& model_;
  BoxListener& listener_;
  const Property<Text>* caption_;
  Text spoken_;  // the name that readers of the screen have
  bool showing_ = false;
  bool inFocus_ = false;
  int start_ = 0, length_ = 0;  // the model's selection as it was shown or read last
};

}  // namespace tavix::win32
