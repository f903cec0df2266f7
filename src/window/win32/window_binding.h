#pragma once

#include <optional>

#include "window/win32/window_context.h"

namespace tavix::win32 {

// A model shown by a control of the system. It keeps place, visibility, enabled state and tool tip, and
// hands the messages of the control to the class of its kind.
class WindowBinding : public Binding {
 public:
  HWND Window() const { return window_; }
  // The binding of a child window, null where there is none.
  static WindowBinding* Of(HWND window);

  void Detach() override;
  void Apply() final;
  // As long as the model of `cover` is visible, this control lies under it and is out of reach.
  void LieUnder(WindowBinding& cover);

  // What the control tells its parent.
  virtual void OnCommand(int code) { (void)code; }
  virtual LRESULT OnNotify(NMHDR& header) { return (void)header, 0; }
  virtual void OnDraw(const DRAWITEMSTRUCT& draw) { (void)draw; }
  // Sets the colours for a control that paints text by itself; null leaves the system's.
  virtual HBRUSH OnColors(HDC context) { return (void)context, nullptr; }

 protected:
  WindowBinding(Control& model, WindowContext& context)
      : Binding(model, context.changes), context_(context), model_(model) {}

  // Makes the control where the model has it; one that has no place yet is hidden. `style` is added to what
  // all have; `name` as SetName has it.
  void Create(int id, const wchar_t* className, DWORD style, TextView name = {});
  // The name that the control shows, or that readers of the screen say where it shows none.
  void SetName(TextView name);
  // Has the control painted anew. Nothing is asked for in a hidden window, which is painted as it appears.
  void Redraw(bool erase = false) const;
  // Brings the rest of the model to the control.
  virtual void Show() {}
  // A message of the control itself; a result ends its handling.
  virtual std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer);
  virtual void OnMouseMove(int buttons) { (void)buttons; }

  LRESULT Send(UINT message, WPARAM wide = 0, LPARAM longer = 0) const {
    return SendMessageW(window_, message, wide, longer);
  }
  // What the control does by itself with a message.
  LRESULT PassOn(UINT message, WPARAM wide, LPARAM longer) const {
    return CallWindowProcW(kindProcedure_, window_, message, wide, longer);
  }

  WindowContext& context_;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wide, LPARAM longer);
  bool IsShown() const;
  void ShowPlace();
  void ShowState();
  void ShowToolTip();
  void LeaveFocus();

  Control& model_;
  HWND window_ = nullptr;
  WNDPROC kindProcedure_ = nullptr;  // of the control's own kind
  RECT place_{};
  Text name_, toolTip_;
  WindowBinding* cover_ = nullptr;
  WindowBinding* covered_ = nullptr;
};

// The mouse buttons held down, as the models' events take them.
int HeldButtons(WPARAM wide);
// The point that a message of the mouse tells of.
POINT PointOf(LPARAM position);

}  // namespace tavix::win32
