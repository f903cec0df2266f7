#pragma once

#include <utility>

#include "platform/windows/windows_api.h"

namespace tavix::windows {

// Owns one handle of the system, of any kind. The traits of a kind are:
//   using Handle = ...;
//   static Handle Null();              the value that means no handle
//   static void Close(Handle handle);  never called with Null()
template <class Traits>
class Owned {
 public:
  using Handle = typename Traits::Handle;

  Owned() = default;
  explicit Owned(Handle handle) : handle_(handle) {}
  Owned(Owned&& other) noexcept : handle_(other.Release()) {}
  Owned& operator=(Owned&& other) noexcept {
    if (this != &other) Reset(other.Release());
    return *this;
  }
  Owned(const Owned&) = delete;
  Owned& operator=(const Owned&) = delete;
  ~Owned() { Reset(); }

  Handle Get() const { return handle_; }
  explicit operator bool() const { return handle_ != Traits::Null(); }
  // Gives up ownership and returns the handle.
  [[nodiscard]] Handle Release() { return std::exchange(handle_, Traits::Null()); }
  // Closes the owned handle and takes over `handle`.
  void Reset(Handle handle = Traits::Null()) {
    const Handle old = std::exchange(handle_, handle);
    if (old != Traits::Null()) Traits::Close(old);
  }
  // For an API call that writes a handle. Closes the owned handle first.
  Handle* Receive() {
    Reset();
    return &handle_;
  }

 private:
  Handle handle_ = Traits::Null();
};

// A kernel object: a mutex, an event, a token.
struct ObjectTraits {
  using Handle = HANDLE;
  static Handle Null() { return nullptr; }
  static void Close(Handle handle) { CloseHandle(handle); }
};
using ObjectHandle = Owned<ObjectTraits>;

struct RegistryKeyTraits {
  using Handle = HKEY;
  static Handle Null() { return nullptr; }
  static void Close(Handle handle) { RegCloseKey(handle); }
};
using RegistryKeyHandle = Owned<RegistryKeyTraits>;

// A device context of the whole screen.
struct ScreenContextTraits {
  using Handle = HDC;
  static Handle Null() { return nullptr; }
  static void Close(Handle handle) { ReleaseDC(nullptr, handle); }
};
using ScreenContext = Owned<ScreenContextTraits>;

}  // namespace tavix::windows
