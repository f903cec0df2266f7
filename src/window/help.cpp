#include "window/help.h"

#include "forms/about_form.h"
#include "forms/type_form.h"
#include "frame/messages.h"
#include "frame/support/pub_common.h"
#include "frame/support/pub_system.h"
#include "platform/application.h"
#include "window/addresses.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr TextView kViewerTitle = u"TVX Help";

// Addresses of mails. Blanks stand as they are; a line end is %0A.
constexpr TextView kRecommendation =
    u"mailto: ?subject=Recommend software - Tavix: Cleans junk and repairs registry (from 'your name "
    u"here').&body=Hi,%0A%0AI'm using Tavix, it's an easy-to-use junk clean and registry repair "
    u"tool.%0AThrough the clean-up and repair, it makes your computer system clean and running faster, you "
    u"can also get more free disk space.%0A%0ATVX classifies the clean/repair functions as 'Privacy', "
    u"'System', 'Registry' and 'Advanced' four main categories, it also includes the 'One-click "
    u"Clean/Repair' feature, so as to locate functions and clean/repair system quickly.%0A%0AYou should "
    u"have a test!%0A%0AOfficial website: ";
constexpr TextView kDownload = u"%0ADirect download URL: ";
constexpr TextView kSupportRequest =
    u"?subject=Support Request for TVX.&body=Hi, I have several questions about using TVX as below, and "
    u"want to get your support as soon as possible, thank you.";

void Run(TextView target) { pubSystem.RunTarget(target, platform::kMaximized); }

}  // namespace

void menhh_Click() {
  platform::WindowHandle viewer = 0;
  pubSystem.FindWindowByTitle(kViewerTitle, viewer);
  if (viewer < 1) Run(Concat(u"HH ", platform::applicationFolder, u"\\Help.chm"));
}

void menhf_Click() { Run(Concat(ProductSite(), u"/faq.htm")); }
void menhw_Click() { Run(ProductSite()); }
void menhc_Click() { Run(Concat(u"mailto:", SupportMail(), kSupportRequest)); }
void menha_Click() { frmPubAbout.ShowModal(); }

void picHelp_Click() {
  frmPubType.LoadOnce();
  frmPubType.menh.Popup();
}

void picCommend_Click() {
  Run(Concat(kRecommendation, ProductSite(), kDownload, ProductSite(), u"/tavix-setup.exe"));
}

void lblProdLogo_MouseUp(int button) {
  if (button == kLeftButton) menhw_Click();
}

void lblCompLogo_MouseUp(int button) {
  if (button == kLeftButton) Run(MakerSite());
}

void frmPubAbout_Load() { pubCommon.LoadFormTexts(frmPubAbout, TextCatalogue()); }

void sbtAboutClose_Click() { frmPubAbout.Unload(); }

}  // namespace tavix::mdlPubSelf
