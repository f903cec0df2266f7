#include <algorithm>
#include <array>

#include "forms/about_form.h"
#include "window/layout.h"
#include "window/place.h"

namespace tavix {

// The picture at the top with the words beside it, the buttons in a row at the lower right.
void LayOutAboutForm(const WidthOf& widthOf) {
  constexpr int kMargin = 240;
  constexpr int kGap = 90;
  constexpr int kLogo = 960;
  constexpr int kLine = 285;
  constexpr int kLeastWidth = 5700;
  constexpr int kHeight = 2250;
  constexpr int kLeastButton = 1590;
  constexpr int kButtonHeight = 420;

  AboutForm& form = frmPubAbout;
  const std::array<Button*, 3> buttons = {&form.sbtMailer, &form.sbtWeb, &form.sbtClose};
  int button = kLeastButton;
  for (const Button* each : buttons)
    button = std::max(button, dialog::ButtonWidth(*each, each == &form.sbtClose, widthOf));
  const int left = kMargin + kLogo + kMargin;
  const int words =
      std::max(CaptionWidth(form.lblProduct, widthOf), CaptionWidth(form.lblCopyright, widthOf));
  form.Width = std::max({kLeastWidth, left + words + kMargin, 2 * kMargin + 3 * button + 2 * kGap});
  form.Height = kHeight;
  const int width = form.Width - left - kMargin;
  const int top = kMargin + 150;
  Put(form.picLogo, {kMargin, kMargin, kLogo, kLogo});
  Put(form.lblProduct, {left, top, width, kLine});
  Put(form.lblCopyright, {left, top + kLine + kGap, width, kLine});
  int next = form.Width - kMargin - 3 * button - 2 * kGap;
  for (Button* each : buttons) {
    Put(*each, {next, form.Height - kMargin - kButtonHeight, button, kButtonHeight});
    next += button + kGap;
  }
}

}  // namespace tavix
