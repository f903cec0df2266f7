#pragma once

#include <vector>

#include "controls/control.h"

namespace tavix::win32 {

class Binding;

// Bindings whose models have changed since they were last shown, in the order of their changes.
class ChangeQueue {
 public:
  void Add(Binding& binding) { waiting_.push_back(&binding); }
  void Remove(Binding& binding) { std::erase(waiting_, &binding); }
  // Shows them all, each once, however often its model has changed.
  void Flush();

 private:
  std::vector<Binding*> waiting_;
};

// Ties a model to what shows it. A change of the model only marks the binding; `Apply` is run by the flush
// that follows. The model outlives the binding.
class Binding : public ControlPeer {
 public:
  Binding(Control& model, ChangeQueue& changes);
  Binding(const Binding&) = delete;
  Binding& operator=(const Binding&) = delete;
  ~Binding() override { Binding::Detach(); }

  void ModelChanged() final;
  // From here on the model is on its own. Needed before the real control goes.
  virtual void Detach();
  // Brings what is shown to the model's state.
  virtual void Apply() = 0;

 private:
  friend class ChangeQueue;
  Control* model_;
  ChangeQueue& changes_;
  bool waiting_ = false;
};

}  // namespace tavix::win32
