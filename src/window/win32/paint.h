#pragma once

#include "text/text.h"
#include "window/win32/gdi.h"
#include "window/win32/palette.h"

namespace tavix::win32 {

void FillArea(HDC context, const RECT& area, COLORREF color);
// A line one pixel wide along the edge, within the area.
void FrameArea(HDC context, const RECT& area, COLORREF color);
// Text on what is there already; `format` as DrawText has it.
void WriteText(HDC context, TextView text, RECT area, HFONT font, COLORREF color, UINT format);
// The caption of a button, in its middle: an & stands before the letter that presses it, which has a line
// below unless `state` (ODS_...) says that these lines are hidden.
void WriteCaption(HDC context, TextView text, RECT area, HFONT font, COLORREF color, UINT state);

// A picture of 32 bits a pixel, row by row from the top; null, and no pixels, when the system has no room.
Bitmap MakePicture(SIZE size, uint32_t*& pixels);

// Draws unseen and puts the whole picture on the screen at its end. `area` is what will be drawn.
class Canvas {
 public:
  Canvas(HDC screen, const RECT& area);
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;
  ~Canvas();
  // Has the coordinates of the screen's context.
  HDC Get() const { return memory_.Get(); }

 private:
  HDC screen_;
  RECT area_;
  MemoryContext memory_;
  uint32_t* pixels_ = nullptr;
  Bitmap bitmap_;
  HGDIOBJ before_;
};

struct ButtonLook {
  COLORREF face, line, text;
};
// The colours of a button in a state (ODS_...); an accented button stands out until it is disabled.
ButtonLook LookOf(const Palette& palette, UINT state, bool accented, bool hot);
// Face and line of a flat button, and a second line inside where it has the focus.
void DrawButtonFace(HDC context, RECT area, const ButtonLook& look, UINT state, int line);

}  // namespace tavix::win32
