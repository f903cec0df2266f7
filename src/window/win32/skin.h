#pragma once

#include <map>

#include "text/text.h"
#include "window/win32/gdi.h"

namespace tavix::win32 {

// The program's pictures: bitmap resources found by key, each drawn for 96, 120, 144 and 192 dots per inch.
// A picture is loaded when it is first asked for.
class Skin {
 public:
  explicit Skin(int dpi) : dpi_(dpi) {}
  bool Has(TextView key) { return Find(key).bitmap.Get() != nullptr; }
  // The size of a picture on this screen, in pixels; 0 by 0 for an unknown key.
  SIZE SizeOf(TextView key) { return Find(key).shown; }
  // Draws a picture in its size on this screen, with its upper left corner at `corner`. Does nothing for an
  // unknown key.
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
