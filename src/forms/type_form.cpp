#include "forms/type_form.h"

namespace tavix {

TypeForm::TypeForm() : Form(u"frmPubType") {
  Visible = false;
  Caption = u"Add Junk File Type";
  SayAll(u"lbl", lbl, {u"&Description:", u"&Pattern:"});
  SayAll(u"sbt", sbt, {u"Save && Add", u"Save && Close", u"Close"});

  SayMenu(u"menrx", menrx, u"&Execute");
  SayMenu(u"menro", menro, u"&Open");
  SayMenu(u"menrp", menrp, u"&Properties...");
  SayMenu(u"menri", menri, u"&Invert Check");

  SayMenu(u"menhh", menhh, u"&Help Topics");
  SayMenu(u"menhf", menhf, u"&Frequently Asked Questions");
  SayMenu(u"menhw", menhw, u"Tavix on the &Web");
  SayMenu(u"menhc", menhc, u"&Contact Support...");
  SayMenu(u"menhl", menhl, u"Check for an &Update");
  SayMenu(u"menha", menha, u"&About Tavix...");
  for (MenuItem* separator : {&menhsa, &menhsb, &menhsc}) separator->Caption = u"-";
}

}  // namespace tavix
