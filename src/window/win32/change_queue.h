#pragma once

#include <functional>
#include <vector>

#include "controls/control.h"

namespace tavix::win32 {

class Binding;

// The bindings whose models have changed since they were last shown, in the order of their changes.
class ChangeQueue {
 public:
  void Add(Binding& binding) { waiting_.push_back(&binding); }
  void Remove(Binding& binding) { std::erase(waiting_, &binding); }
  // Applies each of them once, however often its model has changed.
  void Flush();

 private:
  std::vector<Binding*> waiting_;
};

// Ties a model to what shows it. A change of the model only queues the binding; the next flush runs `Apply`.
// The model outlives the binding.
class Binding : public ControlPeer {
 public:
  Binding(Control& model, ChangeQueue& changes);
  Binding(const Binding&) = delete;
  Binding& operator=(const Binding&) = delete;
  ~Binding() override { Binding::Detach(); }

  void ModelChanged() final;
  // Unties the model. Call it before the real control is destroyed.
  virtual void Detach();
  // Brings what is shown to the model's state.
  virtual void Apply() = 0;
  // Brings it to the bounds in its window, after that has scrolled.
  virtual void Move() {}
  // Takes over fonts, colours and lengths of its window, which have changed.
  virtual void ChangeLook() {}

 private:
  friend class ChangeQueue;
  Control* model_;
  ChangeQueue& changes_;
  bool waiting_ = false;
};

// Runs a function when its model has changed.
class FunctionBinding : public Binding {
 public:
  FunctionBinding(Control& model, ChangeQueue& changes, std::function<void()> apply)
      : Binding(model, changes), apply_(std::move(apply)) {}
  void Apply() override { apply_(); }

 private:
  std::function<void()> apply_;
};

}  // namespace tavix::win32
