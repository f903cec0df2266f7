#pragma once

#include "window/win32/window_context.h"

namespace tavix::win32 {

// A timer of the window; its ticks come by WM_TIMER.
class TimerBinding : public Binding {
 public:
  TimerBinding(Timer& model, WindowContext& context, UINT_PTR id)
      : Binding(model, context.changes), model_(model), context_(context), id_(id) {}
  void Apply() override {
    if (interval_ == model_.Interval) return;
    interval_ = model_.Interval;
    if (interval_ > 0) {
      SetTimer(context_.window, id_, static_cast<UINT>(interval_), nullptr);
    } else {
      KillTimer(context_.window, id_);
    }
  }
  // A tick that was under way when the timer stopped is dropped.
  void OnTimer(UINT_PTR id) {
    if (id == id_ && model_.Interval > 0) model_.Tick();
  }

 private:
  Timer& model_;
  WindowContext& context_;
  UINT_PTR id_;
  int interval_ = 0;
};

}  // namespace tavix::win32
