#pragma once

#include "platform/windows/handle.h"

#include <objbase.h>

namespace tavix::windows {

// Owns one reference to a COM object.
template <class Interface>
struct ComTraits {
  using Handle = Interface*;
  static Handle Null() { return nullptr; }
  static void Close(Handle handle) { handle->Release(); }
};
template <class Interface>
using ComPointer = Owned<ComTraits<Interface>>;

// Another interface of a COM object. Null when the object doesn't have it.
template <class Interface>
ComPointer<Interface> Ask(IUnknown* object, REFIID id) {
  ComPointer<Interface> found;
  if (FAILED(object->QueryInterface(id, reinterpret_cast<void**>(found.Receive())))) (void)found.Release();
  return found;
}

// Owns memory that a COM object allocated for us.
template <class Type>
struct TaskMemoryTraits {
  using Handle = Type*;
  static Handle Null() { return nullptr; }
  static void Close(Handle handle) { CoTaskMemFree(handle); }
};
template <class Type>
using TaskMemory = Owned<TaskMemoryTraits<Type>>;

// Initializes COM on this thread for as long as the object lives.
class ComApartment {
 public:
  ComApartment() : entered_(SUCCEEDED(CoInitializeEx(nullptr, kKind))) {}
  ~ComApartment() {
    if (entered_) CoUninitialize();
  }
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;

 private:
  static constexpr DWORD kKind = COINIT_APARTMENTTHREADED | COINIT_DISABLE_OLE1DDE;
  bool entered_;
};

}  // namespace tavix::windows
