#pragma once

#include <optional>

#include "controls/form.h"
#include "window/win32/change_queue.h"
#include "window/win32/gdi.h"
#include "window/win32/palette.h"
#include "window/win32/skin.h"

namespace tavix::win32 {

// What all bindings of a window share. It outlives them.
struct WindowContext {
  HWND window = nullptr;
  Form* form = nullptr;
  HWND toolTips = nullptr;
  int dpi = 96;
  Palette colors;
  Font font, boldFont, linkFont;
  Brush ground;
  std::optional<Skin> skin;
  ChangeQueue changes;
  HWND lostFocus = nullptr;         // the control that had the focus when it was hidden or disabled
  POINT mouse{-1, -1};              // where the mouse was last, on the screen
  std::optional<POINT> menuCorner;  // on the screen, where a menu is not to pop up at the mouse

  // Whether the mouse, now at a point of a window, is elsewhere than before. The system tells of moves, too,
  // where the mouse rests and what is below it has changed.
  bool HasMoved(HWND at, POINT position) {
    ClientToScreen(at, &position);
    const bool moved = position.x != mouse.x || position.y != mouse.y;
    mouse = position;
    return moved;
  }
  int Pixels(int twips) const { return MulDiv(twips, dpi, 1440); }
  int Twips(int pixels) const { return MulDiv(pixels, 1440, dpi); }
  // The width of a line, one pixel at 96 DPI.
  int Line() const { return Pixels(15); }
  RECT Area(const Control& control) const {
    return {Pixels(control.Left), Pixels(control.Top), Pixels(control.Left + control.Width),
            Pixels(control.Top + control.Height)};
  }
};

// Colours, fonts and pictures for the screen's dots, the fonts made from the system's message font.
void MakeDrawingTools(WindowContext& context);
// How much room a text takes on one line, in twips.
int TextWidth(const WindowContext& context, TextView text);
// The height of a line of text, in pixels.
int TextHeight(const WindowContext& context);

}  // namespace tavix::win32
