#include "forms/type_form.h"

namespace tavix {

TypeForm::TypeForm() {
  Visible = false;
  Caption = u"Add Junk File Type";
  lbl[0].Caption = u"&Description:";
  lbl[1].Caption = u"&Pattern:";
  sbt[0].Caption = u"Save && Add";
  sbt[1].Caption = u"Save && Close";
  sbt[2].Caption = u"Close";

  menrx.Caption = u"&Execute";
  menro.Caption = u"&Open";
  menrp.Caption = u"&Properties...";
  menri.Caption = u"&Invert Check";

  menhh.Caption = u"&Help Topics";
  menhf.Caption = u"&Frequently Asked Questions";
  menhw.Caption = u"Tavix on the &Web";
  menhc.Caption = u"&Contact Support...";
  menhl.Caption = u"Check for an &Update";
  menha.Caption = u"&About Tavix...";
  for (MenuItem* separator : {&menhsa, &menhsb, &menhsc}) separator->Caption = u"-";
}

std::vector<NamedText> TypeForm::Texts() {
  return FormTexts().AddAll(u"lbl", lbl).AddAll(u"sbt", sbt).Take();
}

std::vector<NamedText> TypeForm::Menus() {
  FormTexts texts;
  texts.Add(u"menrx", menrx.Caption).Add(u"menro", menro.Caption);
  texts.Add(u"menrp", menrp.Caption).Add(u"menri", menri.Caption);
  texts.Add(u"menhh", menhh.Caption).Add(u"menhf", menhf.Caption).Add(u"menhw", menhw.Caption);
  texts.Add(u"menhc", menhc.Caption).Add(u"menhl", menhl.Caption).Add(u"menha", menha.Caption);
  return texts.Take();
}

}  // namespace tavix
