#include "window/type_layout.h"

#include <algorithm>
#include <numeric>

#include "forms/type_form.h"
#include "window/place.h"

namespace tavix {
namespace {

// Twips.
constexpr int kMargin = 210;
constexpr int kGap = 90;
constexpr int kRow = 360;
constexpr int kLeastBox = 4200;
constexpr int kButtonHeight = 390;
constexpr int kLeastButton = 1290;
constexpr int kButtonPadding = 210;

}  // namespace

void LayOutTypeForm(const WidthOf& widthOf) {
  TypeForm& form = frmPubType;
  const auto words = [&](const auto& control) { return widthOf(PlainCaption(control.Caption.Get())); };
  const auto buttonWidth = [&](const Button& button) {
    const int bold = &button == &form.sbt[1] ? words(button) / 5 : 0;
    return std::max(kLeastButton, words(button) + bold + 2 * kButtonPadding);
  };
  const int boxes = kMargin + std::max(words(form.lbl[0]), words(form.lbl[1])) + kGap;
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
