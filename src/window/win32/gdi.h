#pragma once

#include "controls/property.h"
#include "platform/windows/handle.h"

namespace tavix::win32 {

// A GDI object: font, brush, bitmap, pen.
template <class Kind>
struct DrawingTraits {
  using Handle = Kind;
  static Handle Null() { return nullptr; }
  static void Close(Handle handle) { DeleteObject(handle); }
};
using Font = windows::Owned<DrawingTraits<HFONT>>;
using Brush = windows::Owned<DrawingTraits<HBRUSH>>;
using Bitmap = windows::Owned<DrawingTraits<HBITMAP>>;

struct MemoryContextTraits {
  using Handle = HDC;
  static Handle Null() { return nullptr; }
  static void Close(Handle handle) { DeleteDC(handle); }
};
using MemoryContext = windows::Owned<MemoryContextTraits>;

// Selects an object into a device context, and the former one again in its destructor.
class Selection {
 public:
  Selection(HDC context, HGDIOBJ object) : context_(context), before_(SelectObject(context, object)) {}
  Selection(const Selection&) = delete;
  Selection& operator=(const Selection&) = delete;
  ~Selection() { SelectObject(context_, before_); }

 private:
  HDC context_;
  HGDIOBJ before_;
};

// A model's colour as GDI takes it.
inline COLORREF ScreenColor(Color color) {
  return (color & 0x80000000) != 0 ? GetSysColor(static_cast<int>(color & 0xFF)) : color;
}

}  // namespace tavix::win32
