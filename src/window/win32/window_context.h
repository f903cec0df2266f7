#pragma once

#include <climits>
#include <functional>
#include <optional>

#include "controls/form.h"
#include "window/win32/change_queue.h"
#include "window/win32/gdi.h"
#include "window/win32/letter_search.h"
#include "window/win32/palette.h"
#include "window/win32/skin.h"

namespace tavix::win32 {

class TextBoxBinding;

// What all bindings of a window share. It outlives them.
struct WindowContext {
  HWND window = nullptr;
  Form* form = nullptr;
  HWND toolTips = nullptr;
  int dpi = 96;  // pixels of an inch of the layout
  Palette colors;
  Font font, boldFont, linkFont, titleFont;
  Brush background;
  std::optional<Skin> skin;
  ChangeQueue changes;
  HWND lostFocus = nullptr;         // the control that had the focus when it was hidden or disabled
  HWND standIn = nullptr;           // has the focus until that control can take it
  POINT scrolled{0, 0};             // by how many pixels the window shows its form further right and down
  POINT mouse{-1, -1};              // where the mouse was last, on the screen
  std::optional<POINT> menuCorner;  // where a menu pops up on the screen; at the mouse without one
  LetterSearch letters;             // typed in the lists and trees of the window
  std::function<void(TextBoxBinding&)> boxLeft;  // the focus has moved from a box to another control

  // Whether the mouse, now at a point of window `at`, has moved since the last call. WM_MOUSEMOVE also
  // arrives when only the window under a resting mouse changes.
  bool HasMoved(HWND at, POINT position) {
    ClientToScreen(at, &position);
    const bool moved = position.x != mouse.x || position.y != mouse.y;
    mouse = position;
    return moved;
  }
  int Pixels(int twips) const { return MulDiv(twips, dpi, 1440); }
  int Twips(int pixels) const { return MulDiv(pixels, 1440, dpi); }
  // The width of a line: one pixel at 96 DPI.
  int Line() const { return Pixels(15); }
  // The bounds of a control, in pixels of the window.
  RECT Area(const Control& control) const {
    RECT area{Pixels(control.Left), Pixels(control.Top), Pixels(control.Left + control.Width),
              Pixels(control.Top + control.Height)};
    OffsetRect(&area, -scrolled.x, -scrolled.y);
    return area;
  }
};

// Sets resolution, colours, fonts, pictures and the width of tool tips for a monitor. The fonts are made from
// the system's message font, and the layout is as much larger than usual as that. With fewer pixels for an
// inch, `mostDpi`, all is made smaller.
void MakeDrawingTools(WindowContext& context, int monitorDpi, int mostDpi = INT_MAX);
// Makes the window of the tool tips. MakeDrawingTools comes after it.
void MakeToolTips(WindowContext& context);
// The width of a text on one line, in twips.
int TextWidth(const WindowContext& context, TextView text);
// The height of a line of text, in pixels.
int TextHeight(const WindowContext& context);

}  // namespace tavix::win32
