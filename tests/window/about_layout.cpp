#include <gtest/gtest.h>

#include "forms/about_form.h"
#include "window/layout.h"
#include "window/place.h"

namespace tavix {
namespace {

bool Apart(const Bounds& one, const Bounds& other) {
  return one.Right() <= other.left || other.Right() <= one.left || one.Bottom() <= other.top ||
         other.Bottom() <= one.top;
}

int WidthOf(TextView text) { return 90 * static_cast<int>(text.size()); }

void CheckPlaces() {
  const AboutForm& form = frmPubAbout;
  for (const Label* label : {&form.lblProduct, &form.lblCopyright})
    EXPECT_GE(label->Width, CaptionWidth(*label, WidthOf));
  for (const Button* button : {&form.sbtMailer, &form.sbtWeb, &form.sbtClose})
    EXPECT_GE(button->Width, CaptionWidth(*button, WidthOf) + 2 * 90);
  const Control* const controls[] = {&form.picLogo,   &form.lblProduct, &form.lblCopyright,
                                     &form.sbtMailer, &form.sbtWeb,     &form.sbtClose};
  for (const Control* one : controls) {
    const Bounds bounds = BoundsOf(*one);
    EXPECT_GE(bounds.left, 0);
    EXPECT_GE(bounds.top, 0);
    EXPECT_GT(bounds.width, 0);
    EXPECT_GT(bounds.height, 0);
    EXPECT_LE(bounds.Right(), form.Width);
    EXPECT_LE(bounds.Bottom(), form.Height);
    for (const Control* other : controls) {
      EXPECT_TRUE(one == other || Apart(bounds, BoundsOf(*other)));
    }
  }
}

TEST(AboutLayout, ItsControlsAreInsideItAndDoNotOverlap) {
  LayOutAboutForm(WidthOf);
  CheckPlaces();
}

TEST(AboutLayout, LongTextsWidenIt) {
  LayOutAboutForm(WidthOf);
  AboutForm& form = frmPubAbout;
  const int width = form.Width;
  const Text copyright = form.lblCopyright.Caption.Get(), mailer = form.sbtMailer.Caption.Get();
  form.lblCopyright.Caption = Concat(copyright, copyright);
  LayOutAboutForm(WidthOf);
  EXPECT_GT(form.Width, width);
  CheckPlaces();
  form.lblCopyright.Caption = copyright;
  form.sbtMailer.Caption = Text(u"Fragen Sie den &Kundendienst");
  LayOutAboutForm(WidthOf);
  EXPECT_GT(form.Width, width);
  CheckPlaces();
  form.sbtMailer.Caption = mailer;
}

}  // namespace
}  // namespace tavix
