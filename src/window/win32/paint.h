#pragma once

#include <functional>

#include "text/text.h"
#include "window/win32/gdi.h"
#include "window/win32/palette.h"

namespace tavix::win32 {

void FillArea(HDC context, const RECT& area, COLORREF color);
// A line one pixel wide along the inner edge of an area.
void DrawOutline(HDC context, const RECT& area, COLORREF color);
// Text without a background; `format` as DrawText takes it. Ampersands are shown as they are.
void WriteText(HDC context, TextView text, RECT area, HFONT font, COLORREF color, UINT format);
// A caption on one line, centred in the height; `align` is DT_LEFT or DT_CENTER. The letter after an
// ampersand is underlined, unless `hidesMnemonic`.
void WriteCaption(HDC context, TextView text, RECT area, HFONT font, COLORREF color, UINT align,
                  bool hidesMnemonic);

// A bitmap of 32 bits a pixel, row by row from the top. Without memory it is null, and so is `pixels`.
Bitmap MakePicture(SIZE size, uint32_t*& pixels);

//--- Buffered painting

// Draws into memory and copies the picture to the screen in its destructor. `area` is what will be drawn.
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

// Answers WM_PAINT: `paint` gets a canvas and the area that needs painting.
void PaintBuffered(HWND window, const std::function<void(HDC canvas, const RECT& area)>& paint);

//--- Button faces

struct ButtonLook {
  COLORREF face, outline, text;
};
// The colours of a button in a state (ODS_...). An accented button stands out unless it is disabled.
ButtonLook LookOf(const Palette& palette, UINT state, bool accented, bool hot);
// A flat face with an outline `line` pixels wide, and an inner outline while it has the focus.
void DrawButtonFace(HDC context, RECT area, const ButtonLook& look, UINT state, int line);

}  // namespace tavix::win32
