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

TEST(AboutLayout, ItsControlsAreInsideItAndDoNotOverlap) {
  LayOutAboutForm([](TextView text) { return 90 * static_cast<int>(text.size()); });
  const AboutForm& form = frmPubAbout;
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

}  // namespace
}  // namespace tavix
