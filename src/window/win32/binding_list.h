#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "controls/frame.h"
#include "window/win32/window_context.h"

namespace tavix::win32 {

// A page of controls. It has no window: its controls are visible while its model is.
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

// The bindings of a window. They are added in tab order; a control added earlier lies in front.
class BindingList {
 public:
  explicit BindingList(WindowContext& context) : context_(context) {}

  // Binds a model; `more` is what the kind's constructor takes after model and context.
  template <class Kind, class Model, class... More>
  Kind& Add(Model& model, More&&... more) {
    auto binding = std::make_unique<Kind>(model, context_, std::forward<More>(more)...);
    Kind& added = *binding;
    bindings_.push_back(std::move(binding));
    page_.push_back(&model);
    return added;
  }
  // Binds the members of an array, whose ids follow the first one's. Returns the first binding.
  template <class Kind, class Models, class... More>
  Kind& AddAll(Models& models, int firstId, const More&... more) {
    Kind* first = nullptr;
    for (auto& model : models) {
      Kind& added = Add<Kind>(model, firstId++, more...);
      if (first == nullptr) first = &added;
    }
    return *first;
  }
  // What is added between these two calls is the page of `frame`.
  void BeginPage() { page_.clear(); }
  void EndPage(Frame& frame) { Add<PageBinding>(frame, std::exchange(page_, {})); }

  void Detach() {
    for (const auto& binding : bindings_) binding->Detach();
  }
  void Move() {
    for (const auto& binding : bindings_) binding->Move();
  }
  void ChangeLook() {
    for (const auto& binding : bindings_) binding->ChangeLook();
  }

 private:
  WindowContext& context_;
  std::vector<std::unique_ptr<Binding>> bindings_;
  std::vector<Control*> page_;
};

}  // namespace tavix::win32
