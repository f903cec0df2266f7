#pragma once

#include <initializer_list>
#include <vector>

#include "controls/frame.h"
#include "window/win32/window_binding.h"

namespace tavix::win32 {

// The title of a group, with a line behind it.
class GroupBinding : public WindowBinding {
 public:
  GroupBinding(Frame& model, WindowContext& context, int id);

 protected:
  void Show() override;
  std::optional<LRESULT> OnMessage(UINT message, WPARAM wide, LPARAM longer) override;

 private:
  LRESULT Paint();

  Frame& model_;
};

// A frame around a page. It has no window: its controls are visible while it is.
class PageBinding : public Binding {
 public:
  PageBinding(Frame& model, WindowContext& context, std::vector<Control*> controls)
      : Binding(model, context.changes), model_(model), controls_(std::move(controls)) {}
  void Apply() override {
    for (Control* control : controls_) control->Visible = model_.Visible.Get();
  }

 private:
  Frame& model_;
  std::vector<Control*> controls_;
};

}  // namespace tavix::win32
