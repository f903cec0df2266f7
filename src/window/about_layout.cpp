#include "forms/about_form.h"
#include "window/layout.h"
#include "window/place.h"

namespace tavix {

// The picture at the top with the words beside it, the buttons in a row at the lower right.
void LayOutAboutForm(const WidthOf&) {
  constexpr int kMargin = 240;
  constexpr int kGap = 90;
  constexpr int kLogo = 960;
  constexpr int kLine = 285;
  constexpr int kButtonWidth = 1590;
  constexpr int kButtonHeight = 420;

  AboutForm& form = frmPubAbout;
  form.Width = 5700;
  form.Height = 2250;
  const int words = kMargin + kLogo + kMargin;
  const int width = form.Width - words - kMargin;
  const int top = kMargin + 150;
  Put(form.picLogo, {kMargin, kMargin, kLogo, kLogo});
  Put(form.lblProduct, {words, top, width, kLine});
  Put(form.lblCopyright, {words, top + kLine + kGap, width, kLine});
  int left = form.Width - kMargin - 3 * kButtonWidth - 2 * kGap;
  for (Button* button : {&form.sbtMailer, &form.sbtWeb, &form.sbtClose}) {
    Put(*button, {left, form.Height - kMargin - kButtonHeight, kButtonWidth, kButtonHeight});
    left += kButtonWidth + kGap;
  }
}

}  // namespace tavix
