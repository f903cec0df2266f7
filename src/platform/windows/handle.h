#pragma once

#include <utility>

#include "platform/windows/windows_api.h"

namespace tavix::windows {

// The one owner of a handle of the system, whatever its kind. The traits of a kind have
//   using Handle = ...;
//   static Handle Null();              what an owner of nothing holds
//   static void Close(Handle handle);  gives the handle back; never called with Null()
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
  // Hands the handle out; this owns nothing afterwards.
  [[nodiscard]] Handle Release() { return std::exchange(handle_, Traits::Null()); }
  // Closes what is owned and owns `handle` from now on.
  void Reset(Handle handle = Traits::Null()) {
    const Handle old = std::exchange(handle_, handle);
    if (old != Traits::Null()) Traits::Close(old);
  }
  // Where a call of the API puts the handle that it makes. Closes what is owned.
  Handle* Receive() {
    Reset();
    return &handle_;
  }

 private:
  Handle handle_ = Traits::Null();
};

// An object that the system keeps for its processes: a mutex, an event, a token.
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

// A device context that belongs to the whole screen.
struct ScreenContextTraits {
  using Handle = HDC;
  static Handle Null() { return nullptr; }
  static void Close(Handle handle) { ReleaseDC(nullptr, handle); }
};
using ScreenContext = Owned<ScreenContextTraits>;

}  // namespace tavix::windows
