#include "window/about.h"

#include "forms/about_form.h"
#include "forms/product.h"
#include "forms/type_form.h"
#include "frame/messages.h"
#include "frame/start_up.h"
#include "support/case.h"
#include "support/program_test.h"

namespace tavix::mdlPubSelf {
namespace {

class About : public ProgramTest {
 protected:
  About() { Start(); }

  static bool LiesInside(const Control& control) {
    return control.Left >= 0 && control.Top >= 0 && control.Width > 0 && control.Height > 0 &&
           control.Left + control.Width <= frmPubAbout.Width &&
           control.Top + control.Height <= frmPubAbout.Height;
  }
};

TEST_F(About, TheMenuShowsTheWindow) {
  int shown = 0;
  frmPubAbout.ShowModal = [&shown] { ++shown; };
  frmPubType.menha.Click();
  EXPECT_EQ(shown, 1);
}

TEST_F(About, TheProductStandsThereWithItsVersion) {
  EXPECT_EQ(frmPubAbout.lblProduct.Caption, Concat(u"Tavix v", kProductVersion));
  EXPECT_EQ(frmPubMain.lblVer.Caption, Text(u"v2.19.630"));
}

TEST_F(About, ItsTextsComeFromTheCatalogueWhenItIsLoaded) {
  machine.files.AddFile(TextCatalogue(),
                        {.content = "[frmPubAbout]\nsbtClose=Zu\nlblCopyright=Alle Rechte\n"});
  EXPECT_EQ(frmPubAbout.sbtClose.Caption, u"&Close");
  frmPubAbout.LoadOnce();
  EXPECT_EQ(frmPubAbout.sbtClose.Caption, u"Zu");
  EXPECT_EQ(frmPubAbout.lblCopyright.Caption, u"Alle Rechte");
  EXPECT_EQ(frmPubAbout.sbtWeb.Caption, u"&Web Site");
}

TEST_F(About, ItsControlsLieInsideItAndApart) {
  frmPubAbout.Width = 5500;
  frmPubAbout.Height = 2400;
  frmPubAbout.Resize();
  Control* const controls[] = {&frmPubAbout.picLogo,   &frmPubAbout.lblProduct, &frmPubAbout.lblCopyright,
                               &frmPubAbout.sbtMailer, &frmPubAbout.sbtWeb,     &frmPubAbout.sbtClose};
  for (Control* one : controls) {
    SCOPED_TRACE(Case(one->Left.Get()));
    EXPECT_TRUE(LiesInside(*one));
    for (Control* other : controls) {
      if (one == other) continue;
      const bool apart = one->Left + one->Width <= other->Left || other->Left + other->Width <= one->Left ||
                         one->Top + one->Height <= other->Top || other->Top + other->Height <= one->Top;
      EXPECT_TRUE(apart) << Case(other->Left.Get());
    }
  }
}

TEST_F(About, CloseUnloadsItAndSoDoesTheEndOfTheProgram) {
  int unloads = 0;
  frmPubAbout.Unload = [&unloads] { ++unloads; };
  frmPubAbout.sbtClose.Click();
  EXPECT_EQ(unloads, 1);
  Form_Unload();
  EXPECT_EQ(unloads, 2);
}

}  // namespace
}  // namespace tavix::mdlPubSelf
