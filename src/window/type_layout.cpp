#include <algorithm>
#include <numeric>

#include "forms/type_form.h"
#include "window/layout.h"
#include "window/place.h"

namespace tavix {
namespace {

using dialog::kButtonHeight;
using dialog::kGap;
using dialog::kMargin;

// Twips.
constexpr int kRow = 360;
constexpr int kLeastBox = 4200;

}  // namespace

void LayOutTypeForm(const WidthOf& widthOf) {
  TypeForm& form = frmPubType;
  const auto buttonWidth = [&](const Button& button) {
    return dialog::ButtonWidth(button, &button == &form.sbt[1], widthOf);
  };
  const int boxes =
      kMargin + std::max(CaptionWidth(form.lbl[0], widthOf), CaptionWidth(form.lbl[1], widthOf)) + kGap;
  const int buttons =
      std::accumulate(form.sbt.begin(), form.sbt.end(), 2 * kGap,
                      [&](int sum, const Button& button) { return sum + buttonWidth(button); });
  const int width = std::max(boxes + kLeastBox, kMargin + buttons);

  int top = kMargin;
  for (size_t i = 0; i < form.txt.size(); ++i) {
    Put(form.lbl[i], {kMargin, top, boxes - kMargin, kRow});
    Put(form.txt[i], {boxes, top, width - boxes, kRow});
    top += kRow + kGap;
  }
  top += kMargin - kGap;
  int left = width - buttons;
  for (Button& button : form.sbt) {
    Put(button, {left, top, buttonWidth(button), kButtonHeight});
    left += buttonWidth(button) + kGap;
  }
  form.Width = width + kMargin;
  form.Height = top + kButtonHeight + kMargin;
}

}  // namespace tavix
