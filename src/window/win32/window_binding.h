#pragma once

#include <functional>
#include <optional>

#include "window/win32/window_context.h"

namespace tavix::win32 {

//--- Name

// Where a control takes its name from. Its window text is the name, which screen readers say.
struct ControlName {
  std::function<Text()> get;
  bool isWindowText = true;  // false where the window text is the control's value
};
// A caption as it is; an ampersand in it marks the letter that leads to the control.
ControlName CaptionName(const Property<Text>& caption);
// The words of another control's caption, without ampersands.
ControlName PlainName(const Property<Text>& caption);

//--- Any control

// A model shown by a control of the system. It keeps position, visibility, enabled state, name and tool tip,
// and hands the control's messages to the class of its kind.
class WindowBinding : public Binding {
 public:
  HWND Window() const { return window_; }
  // The binding of a child window, or null.
  static WindowBinding* Of(HWND window);

  void Detach() override;
  void Apply() final;
  void Move() override { ShowBounds(); }
  void ChangeLook() final;
  // Hides this control while the model of `cover` is visible.
  void HideBelow(WindowBinding& cover);
  // Ends a group of controls before this one: arrow keys move from option to option within a group.
  void BeginGroup() const;

  // What the control tells its parent.
  virtual void OnCommand(int code) { (void)code; }
  virtual LRESULT OnNotify(NMHDR& header) { return (void)header, 0; }
  void OnDraw(const DRAWITEMSTRUCT& draw);
  // Sets the colours of a control that paints its text itself. Null keeps the system's.
  virtual HBRUSH OnColors(HDC context) { return (void)context, nullptr; }

 protected:
  WindowBinding(Control& model, WindowContext& context, ControlName name = {})
      : Binding(model, context.changes), context_(context), model_(model), name_(std::move(name)) {}

  // Makes the control within the model's bounds. It stays hidden as long as these are empty. `style` is added
  // to the style of all controls.
  void Create(int id, const wchar_t* className, DWORD style);
  // Invalidates the control. A hidden window is skipped: it is painted when it appears.
  void Redraw(bool erase = false) const;
  bool IsEnabled() const { return IsWindowEnabled(window_) != FALSE; }
  // Whether the system hides the lines below the letters that lead to controls.
  bool HidesMnemonics() const { return (Send(WM_QUERYUISTATE) & UISF_HIDEACCEL) != 0; }
  // Brings the rest of the model to the control.
  virtual void Show() {}
  // Takes over those of the window's fonts, colours and lengths that the control keeps.
  virtual void ShowLook() {}
  // Paints a control that is ours to paint, in a state (ODS_...).
  virtual void Paint(HDC canvas, const RECT& area, UINT state) { (void)canvas, (void)area, (void)state; }
  // Handles a message of the control itself. Without a result, the control's own class handles it.
  virtual std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  virtual void OnMouseMove(int buttons) { (void)buttons; }

  LRESULT Send(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
    return SendMessageW(window_, message, wParam, lParam);
  }
  // Has the control's own class handle a message.
  LRESULT PassOn(UINT message, WPARAM wParam, LPARAM lParam) const {
    return CallWindowProcW(classProcedure_, window_, message, wParam, lParam);
  }

  WindowContext& context_;

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  bool IsShown() const;
  Text Name() const { return name_.get ? name_.get() : Text(); }
  void ShowBounds();
  void ShowName();
  void ShowState();
  void ShowToolTip();
  void TakeFocus();
  void GiveUpFocus();

  Control& model_;
  HWND window_ = nullptr;
  WNDPROC classProcedure_ = nullptr;
  ControlName name_;
  // As they were shown last.
  RECT bounds_{};
  Text shownName_, toolTip_;
  WindowBinding* cover_ = nullptr;
  WindowBinding* covered_ = nullptr;
};

//--- Controls with an outline

// A control with a line around it, which has another colour while the control has the focus.
class OutlinedBinding : public WindowBinding {
 protected:
  using WindowBinding::WindowBinding;
  // WindowBinding::Create with room for the outline.
  void CreateOutlined(int id, const wchar_t* className, DWORD style) {
    Create(id, className, WS_TABSTOP | WS_BORDER | style);
  }
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
  // Paints the outline, and with `fill` what lies between it and the client area.
  void PaintOutline(std::optional<COLORREF> fill = std::nullopt) const;
};

//--- Controls that we paint over

// A button of the system with a look of ours, given by `Paint`.
class PaintedBinding : public WindowBinding {
 protected:
  using WindowBinding::WindowBinding;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
};

}  // namespace tavix::win32
