#pragma once

#include "window/win32/window_context.h"

#include <commctrl.h>

namespace tavix::win32 {

enum class Tick { kNone, kWhole, kPart };

struct ImageListTraits {
  using Handle = HIMAGELIST;
  static Handle Null() { return nullptr; }
  static void Close(Handle handle) { ImageList_Destroy(handle); }
};
using ImageList = windows::Owned<ImageListTraits>;

// The boxes of lists and trees in the order of `Tick`, each an image `height` pixels high. With `leading`, an
// empty one stands in front, as trees count.
ImageList MakeTickImages(const WindowContext& context, int height, bool leading);
// One such box in the middle of the left end of an area.
void DrawTick(HDC context, const WindowContext& window, const RECT& area, Tick tick, bool enabled);
// How wide a box is with the room around it.
int TickWidth(const WindowContext& context);

}  // namespace tavix::win32
