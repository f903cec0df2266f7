#include "forms/about_form.h"

#include "forms/product.h"

namespace tavix {

AboutForm::AboutForm() : Form(u"frmPubAbout") {
  Visible = false;
  lblProduct.Caption = Concat(u"Tavix v", kProductVersion);

  Say(u"Caption", Caption, u"About Tavix");
  Say(u"lblCopyright", lblCopyright.Caption, u"Copyright \u00A9 2026 the makers of Tavix");
  Say(u"sbtMailer", sbtMailer.Caption, u"Contact &Support");
  Say(u"sbtWeb", sbtWeb.Caption, u"&Web Site");
  Say(u"sbtClose", sbtClose.Caption, u"&Close");
}

}  // namespace tavix
