#pragma once

#include <algorithm>

#include "controls/control.h"
#include "window/caption.h"

namespace tavix {

// The rectangle of a control in its window, in twips.
struct Bounds {
  int left, top, width, height;
  int Right() const { return left + width; }
  int Bottom() const { return top + height; }
};

inline void Put(Control& control, const Bounds& bounds) {
  control.Left = bounds.left;
  control.Top = bounds.top;
  control.Width = bounds.width;
  control.Height = bounds.height;
}

inline Bounds BoundsOf(const Control& control) {
  return {control.Left, control.Top, control.Width, control.Height};
}

// Between the words of a link and the outline that it has with the focus, at each side, in twips.
constexpr int kLinkPadding = 45;

// The width of a control's caption as it is shown, in twips.
template <class Captioned>
int CaptionWidth(const Captioned& control, const WidthOf& widthOf) {
  return widthOf(PlainCaption(control.Caption.Get()));
}

// The lengths that the options window and the type editor share, in twips.
namespace dialog {

constexpr int kMargin = 210;
constexpr int kGap = 90;
constexpr int kButtonHeight = 390;

// The width of a button with room around its caption. The caption of the default button is bold.
inline int ButtonWidth(const Button& button, bool isDefault, const WidthOf& widthOf) {
  constexpr int kLeast = 1290;
  constexpr int kPadding = 210;
  const int words = CaptionWidth(button, widthOf);
  return std::max(kLeast, words + (isDefault ? words / 5 : 0) + 2 * kPadding);
}

}  // namespace dialog
}  // namespace tavix
