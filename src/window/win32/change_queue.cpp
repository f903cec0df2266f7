#include "window/win32/change_queue.h"

namespace tavix::win32 {

void ChangeQueue::Flush() {
  while (!waiting_.empty()) {
    Binding& binding = *waiting_.front();
    waiting_.erase(waiting_.begin());
    binding.waiting_ = false;
    binding.Apply();
  }
}

Binding::Binding(Control& model, ChangeQueue& changes) : model_(&model), changes_(changes) {
  model.peer = this;
  Binding::ModelChanged();
}

void Binding::ModelChanged() {
  if (waiting_) return;
  waiting_ = true;
  changes_.Add(*this);
}

void Binding::Detach() {
  if (model_ == nullptr) return;
  model_->peer = nullptr;
  model_ = nullptr;
  if (waiting_) changes_.Remove(*this);
  waiting_ = false;
}

}  // namespace tavix::win32
