#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "window/caption.h"
#include "window/win32/binding_list.h"
#include "window/win32/text_box_binding.h"
#include "window/win32/window_owner.h"

namespace tavix::win32 {

// A real window that is modal over the one in front. While it lives, it gives its form's `ShowModal` and
// `Unload` their bodies. The window itself is made when the form is shown and destroyed when it is closed.
//
// A text box is left only once its form has been told and lets the focus go. Until then, the click or key
// that takes the focus from it has no other effect. An option button is pressed before that, since it may
// disable the box.
//
// A window larger than the work area gets scroll bars, and scrolls to what gets the focus.
class DialogWindow : private WindowOwner {
 public:
  DialogWindow(const DialogWindow&) = delete;
  virtual ~DialogWindow();

 protected:
  struct Description {
    Form& form;
    const wchar_t* windowClass;
    Control& first;  // has the focus first
    Button* enter;   // pressed by Enter; if null, the form alone hears of that key
    Button& escape;  // pressed by Escape
    // Gives form and controls their bounds, in twips.
    void (*layOut)(const WidthOf& widthOf);
    DWORD extendedStyle = 0;
  };
  explicit DialogWindow(const Description& description);

  virtual void AddControls(BindingList& controls) = 0;
  void OnPaint(HDC canvas, const RECT& area) override;
  WindowContext& Context() override { return *context_; }

 private:
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  void OnCommand(WindowBinding& control, int code) override;

  void ShowModal();
  bool Create();
  void LayOut();
  void CenterOverOwner();
  SIZE FitScreen();
  void OnNewLook(int monitorDpi, const RECT* suggested) override;
  void Loop();
  void Unload();
  bool IsOpen() const { return context_ != nullptr && context_->window != nullptr; }

  void Handle(MSG& message);
  bool PressKey(const MSG& message);
  void Press(Button* button);
  bool LeaveBoxByMouse(const MSG& message);
  bool ReportLeftBox();
  TextBoxBinding* BoxInFocus() const;

  void ShowChanges();
  void ShowState();
  void ShowFocus();

  void ScrollTo(int bar, int position);
  void OnScroll(int bar, int request);
  void OnWheel(int turned);
  void ScrollToFocus();
  static void ShowAllChanges();

  static inline std::vector<DialogWindow*> shown_;  // from back to front

  const Description dialog_;
  Form& form_;
  Form* owner_ = nullptr;
  bool ownerEnabled_ = true;
  std::unique_ptr<WindowContext> context_;
  std::optional<FunctionBinding> formBinding_;
  std::optional<BindingList> controls_;
  TextBoxBinding* leftBox_ = nullptr;  // the focus has left it, and the form doesn't know yet
  bool reportingLeftBox_ = false;
  HWND seenFocus_ = nullptr;  // the control that the window has scrolled to
  int wheel_ = 0;             // what the mouse wheel has turned and is not yet a step
};

}  // namespace tavix::win32
