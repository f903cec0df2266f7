#pragma once

#include <memory>
#include <vector>

#include "window/caption.h"
#include "window/win32/text_box_binding.h"
#include "window/win32/window_owner.h"

namespace tavix::win32 {

// A real window that is modal over the one in front. It gives `ShowModal` and `Unload` of its form their
// bodies for as long as it lives; the window itself is made when it is shown and destroyed when it is closed.
//
// A text box is left only once its form has been told and lets it go: until then, the click or key that takes
// the focus from it has no other effect. An option button is pressed before that, since it may switch the box
// off.
class DialogWindow : protected BoxListener, private WindowOwner {
 public:
  DialogWindow(const DialogWindow&) = delete;
  ~DialogWindow() override;

 protected:
  using Bindings = std::vector<std::unique_ptr<Binding>>;

  // `enter` and `escape` are pressed by these keys; where `enter` is null the form hears of that key alone.
  DialogWindow(Form& form, const wchar_t* windowClass, Button* enter, Button* escape);

  // Makes the controls in tab order.
  virtual void Bind(WindowContext& context, BoxListener& listener, Bindings& bindings) = 0;
  // Gives form and controls their sizes and places, as `widthOf` has it.
  virtual void LayOut(const WidthOf& widthOf) = 0;
  // The control that has the focus first.
  virtual Control& First() = 0;

 private:
  WindowContext& Context() override { return *context_; }
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;
  void OnPaint(HDC screen, const RECT& area) override;
  void OnCommand(WindowBinding& control, int code) override;
  void OnBoxLeft(TextBoxBinding& box) override;

  void ShowModal();
  bool Create();
  void PlaceOverOwner();
  void Loop();
  void Unload();
  bool IsOpen() const { return context_ != nullptr && context_->window != nullptr; }

  void Handle(MSG& message);
  bool PressKey(const MSG& message);
  void Press(Button* button);
  bool LeaveByMouse(const MSG& message);
  bool Settle();
  TextBoxBinding* BoxInFocus() const;

  void ShowChanges();
  void ShowState();
  void ShowFocus();
  static void ShowAllChanges();

  // The window itself, as a control of the system is.
  class FrameBinding : public Binding {
   public:
    explicit FrameBinding(DialogWindow& owner)
        : Binding(owner.form_, owner.context_->changes), owner_(owner) {}
    void Apply() override { owner_.ShowState(); }

   private:
    DialogWindow& owner_;
  };

  static inline std::vector<DialogWindow*> shown_;  // from back to front

  Form& form_;
  const wchar_t* class_;
  Button* enter_;
  Button* escape_;
  Form* owner_ = nullptr;
  bool ownerEnabled_ = true;
  std::unique_ptr<WindowContext> context_;
  std::unique_ptr<FrameBinding> frame_;
  Bindings bindings_;
  TextBoxBinding* left_ = nullptr;  // a box that the focus has left and whose form doesn't know it yet
  bool settling_ = false;
};

}  // namespace tavix::win32
