#include "forms/about_form.h"

#include "forms/product.h"

namespace tavix {

AboutForm::AboutForm() {
  Visible = false;
  Caption = u"About Tavix";
  lblProduct.Caption = Concat(u"Tavix v", kProductVersion);
  lblCopyright.Caption = u"Copyright \u00A9 2026 the makers of Tavix";
  sbtMailer.Caption = u"Contact &Support";
  sbtWeb.Caption = u"&Web Site";
  sbtClose.Caption = u"&Close";
}

std::vector<NamedText> AboutForm::Texts() {
  FormTexts texts;
  texts.Add(u"Caption", Caption).Add(u"lblCopyright", lblCopyright.Caption);
  texts.Add(u"sbtMailer", sbtMailer.Caption).Add(u"sbtWeb", sbtWeb.Caption);
  texts.Add(u"sbtClose", sbtClose.Caption);
  return texts.Take();
}

}  // namespace tavix
