#pragma once

#include <map>

#include "text/text.h"
#include "window/win32/gdi.h"

namespace tavix::win32 {

// The pictures of the program, bitmaps among its resources by their keys, each drawn for 96, 120, 144 and 192
// dots per inch. They are loaded when they are first asked for.
class Skin {
 public:
  explicit Skin(int dpi) : dpi_(dpi) {}
  bool Has(TextView key) { return Find(key).bitmap.Get() != nullptr; }
  // The size of a picture on this screen, in pixels; none where there is no such picture.
  SIZE SizeOf(TextView key) { return Find(key).shown; }
  // Draws a picture with its upper left corner at a point, in the size that it has on this screen. Nothing
  // happens where there is no such picture.
  void Draw(HDC context, POINT corner, TextView key);

 private:
  struct Picture {
    Bitmap bitmap;
    SIZE shown{};  // pixels on this screen
    SIZE drawn{};  // pixels of the bitmap
  };
  const Picture& Find(TextView key);
  Picture Load(TextView key) const;

  int dpi_;
  std::map<Text, Picture> pictures_;
};

}  // namespace tavix::win32
