#pragma once

#include "window/win32/window_binding.h"

namespace tavix::win32 {

// The progress bar: one label is its frame, the other the fill inside it and the percentage.
class ProgressBinding : public WindowBinding {
 public:
  ProgressBinding(Label& frame, Label& fill, WindowContext& context, int id);
  void OnDraw(const DRAWITEMSTRUCT& draw) override;
  void Detach() override;

 protected:
  void Show() override;

 private:
  // The fill changes what the frame's window shows.
  class FillBinding : public Binding {
   public:
    FillBinding(Label& fill, ProgressBinding& bar, ChangeQueue& changes)
        : Binding(fill, changes), bar_(bar) {}
    void Apply() override { bar_.Show(); }

   private:
    ProgressBinding& bar_;
  };

  Label& frame_;
  Label& fill_;
  FillBinding fillBinding_;
};

}  // namespace tavix::win32
