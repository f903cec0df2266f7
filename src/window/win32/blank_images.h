#pragma once

#include <vector>

#include "window/win32/tick_images.h"

namespace tavix::win32 {

// Pictures of a size in pixels with nothing on them, which keep rows or texts of lists and trees apart.
inline ImageList MakeBlankImages(int width, int height) {
  const size_t line = static_cast<size_t>(width + 15) / 16 * 2;
  const size_t bytes = line * static_cast<size_t>(height);
  const Bitmap picture(CreateBitmap(width, height, 1, 1, std::vector<BYTE>(bytes, 0).data()));
  const Bitmap seenThrough(CreateBitmap(width, height, 1, 1, std::vector<BYTE>(bytes, 0xFF).data()));
  ImageList images(ImageList_Create(width, height, ILC_COLOR | ILC_MASK, 1, 0));
  ImageList_Add(images.Get(), picture.Get(), seenThrough.Get());
  return images;
}

}  // namespace tavix::win32
