#include "window/about.h"

#include "forms/about_form.h"
#include "frame/messages.h"
#include "frame/support/pub_common.h"

namespace tavix::mdlPubSelf {
namespace {

// Twips.
constexpr int kMargin = 240;
constexpr int kLogo = 960;
constexpr int kLine = 285;
constexpr int kButtonWidth = 1590;
constexpr int kButtonHeight = 420;
constexpr int kGap = 90;

void Place(Control& control, int left, int top, int width, int height) {
  control.Left = left;
  control.Top = top;
  control.Width = width;
  control.Height = height;
}

}  // namespace

void menha_Click() { frmPubAbout.ShowModal(); }

void frmPubAbout_Load() { pubCommon.LoadFormTexts(frmPubAbout, TextCatalogue()); }

// The picture with the words beside it at the top, the buttons in a row at the lower right.
void frmPubAbout_Resize() {
  AboutForm& form = frmPubAbout;
  const int words = kMargin + kLogo + kMargin;
  Place(form.picLogo, kMargin, kMargin, kLogo, kLogo);
  Place(form.lblProduct, words, kMargin + 150, form.Width - words - kMargin, kLine);
  Place(form.lblCopyright, words, kMargin + 150 + kLine + kGap, form.Width - words - kMargin, kLine);
  int left = form.Width - kMargin - 3 * kButtonWidth - 2 * kGap;
  for (Button* button : {&form.sbtMailer, &form.sbtWeb, &form.sbtClose}) {
    Place(*button, left, form.Height - kMargin - kButtonHeight, kButtonWidth, kButtonHeight);
    left += kButtonWidth + kGap;
  }
}

void sbtAboutClose_Click() { frmPubAbout.Unload(); }

}  // namespace tavix::mdlPubSelf
