#pragma once

#include <cstdint>
#include <functional>
#include <utility>

namespace tavix {

// A colour of a control: 0x00BBGGRR, or a system colour, 0x80000000 + its number.
using Color = uint32_t;
constexpr Color kWindowBackground = 0x80000005;
constexpr Color kWindowText = 0x80000008;
constexpr Color kButtonFace = 0x8000000F;

// Owns properties and is called when one of them changes.
class PropertyOwner {
 public:
  virtual ~PropertyOwner() = default;
  virtual void PropertyChanged() = 0;
};

// A value of a control, read and assigned like a T. An assignment that changes the value then calls the
// owner's PropertyChanged.
template <class T>
class Property {
 public:
  explicit Property(PropertyOwner* owner, T value = T()) : owner_(owner), value_(std::move(value)) {}
  Property(const Property&) = delete;

  Property& operator=(T value) {
    if (Get() == value) return *this;
    value_ = std::move(value);
    owner_->PropertyChanged();
    return *this;
  }
  Property& operator=(const Property& other) {
    if (this != &other) *this = other.Get();
    return *this;
  }
  // Assigns `form(part)`, which is formed when it's read for the first time: a value that is assigned often
  // is mostly replaced before that. It counts as a change.
  void Form(T part, T (*form)(const T& part)) {
    value_ = std::move(part);
    form_ = form;
    owner_->PropertyChanged();
  }

  operator const T&() const { return Get(); }
  const T& Get() const {
    if (form_ != nullptr) value_ = std::exchange(form_, nullptr)(value_);
    return value_;
  }
  friend bool operator==(const Property& property, const T& value) { return property.Get() == value; }

 private:
  PropertyOwner* owner_;
  mutable T value_;                        // while form_ is set, what the value is formed of
  mutable T (*form_)(const T&) = nullptr;  // null when value_ is the value
};

// An event of a control: calling it runs its handler. It has one handler at most; without one, a call does
// nothing.
template <class... Args>
class Event {
 public:
  Event& operator=(std::function<void(Args...)> handler) {
    handler_ = std::move(handler);
    return *this;
  }
  void operator()(Args... args) const {
    if (handler_) handler_(args...);
  }
  explicit operator bool() const { return static_cast<bool>(handler_); }

 private:
  std::function<void(Args...)> handler_;
};

}  // namespace tavix
