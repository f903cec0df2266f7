#pragma once

#include "controls/control.h"

namespace tavix {

// A place in a window, in twips.
struct Place {
  int left, top, width, height;
  int Right() const { return left + width; }
  int Bottom() const { return top + height; }
};

inline void Put(Control& control, const Place& place) {
  control.Left = place.left;
  control.Top = place.top;
  control.Width = place.width;
  control.Height = place.height;
}

inline Place PlaceOf(const Control& control) {
  return {control.Left, control.Top, control.Width, control.Height};
}

}  // namespace tavix
