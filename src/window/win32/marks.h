#pragma once

#include "window/win32/window_context.h"

#include <commctrl.h>

// The small pictures that we paint ourselves: boxes with their ticks, option rings, and the blank images that
// keep rows and texts apart.
namespace tavix::win32 {

enum class Tick { kNone, kWhole, kPart };

struct ImageListTraits {
  using Handle = HIMAGELIST;
  static Handle Null() { return nullptr; }
  static void Close(Handle handle) { ImageList_Destroy(handle); }
};
using ImageList = windows::Owned<ImageListTraits>;

// How wide a box or ring is with the space around it, in pixels.
int TickWidth(const WindowContext& context);
// The boxes of lists and trees in the order of `Tick`, each `height` pixels high. With `leading`, an empty
// one comes first, since trees count their images from 1.
ImageList MakeTickImages(const WindowContext& context, int height, bool leading);
// A box at the left end of an area, centred in its height.
void DrawTick(HDC context, const WindowContext& window, const RECT& area, Tick tick, bool enabled);
// The ring of an option button, placed as a box is.
void DrawRing(HDC screen, const WindowContext& context, const RECT& area, bool marked, bool enabled);
void AddBlankImage(const ImageList& images, int width, int height);
// One transparent image of this size in pixels.
ImageList MakeBlankImages(int width, int height);

}  // namespace tavix::win32
