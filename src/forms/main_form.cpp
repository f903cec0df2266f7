#include "forms/main_form.h"

#include "forms/product.h"

namespace tavix {

MainForm::MainForm() : Form(u"frmPubMain") {
  // Not for translation: the product's name, and a version that the program reads back.
  Caption = u"Tavix";
  lblVer.Caption = Concat(u"v", kProductVersion);

  SayToolTip(u"picMini", picMini, u"Minimize");
  SayToolTip(u"picClose", picClose, u"Close");
  SayToolTip(u"picHelp", picHelp, u"Help");
  SayToolTip(u"picCommend", picCommend, u"Recommend Tavix to a friend");
  SayToolTip(u"picPrivacy", picPrivacy, u"Privacy (P)");
  SayToolTip(u"picSystem", picSystem, u"System (S)");
  SayToolTip(u"picRegistry", picRegistry, u"Registry (R)");
  SayToolTip(u"picAdv", picAdv, u"Advanced (A)");
  SayToolTip(u"picOpt", picOpt, u"Options (O)");
  SayToolTip(u"picOne", picOne, u"One-click Clean/Repair (1)");
  picPrivacy.BorderStyle = 1;

  Say(u"lblOpt", lblOpt.Caption, u"Click here");
  Say(u"lblOptPrompt", lblOptPrompt.Caption, u"to set related option(s).");
  Say(u"cbxAll", cbxAll.Caption, u"Check All");
  cbxAll.SetValue(1);
  SayAll(u"sbtToolbar", sbtToolbar, {u"Execute", u"Open", u"Properties...", u"Invert Check"});
  Say(u"sbtScan", sbtScan.Caption, u"Scan");
  Say(u"sbtCancel", sbtCancel.Caption, u"Cancel");
  Say(u"sbtClean", sbtClean.Caption, u"Clean");
  Say(u"sbtRepair", sbtRepair.Caption, u"Repair");
  Say(u"lblProgS", lblProgS.Caption, u"Please click <Scan> or press <F3> to start current cleaning job.");
  Say(u"lblTimeP", lblTimeP.Caption, u"Expended");
  Say(u"lblTime", lblTime.Caption, u"? second(s).");
  Say(u"lblSum", lblSum.Caption, u"Sum: ? item(s), ? KB found.");
  // The fifth column is hidden: it holds the key by which sizes are sorted.
  SayColumns(u"lsvResult", lsvResult,
             {{u"      Type", 3528}, {u"Name", 3528}, {u"Size (KB)", 1764}, {u"Location", 9878}});

  SayAccessibleName(u"trvPrivacy", trvPrivacy, u"Privacy functions");
  SayAccessibleName(u"trvRes", trvRes, u"Drives and folders");
  SayAccessibleName(u"lst", lst, u"Functions");
  SayAccessibleName(u"lsvResult", lsvResult, u"Results");

  for (Control* hidden : std::initializer_list<Control*>{&lst, &trvRes, &lblOpt, &lblOptPrompt, &sbtCancel,
                                                         &sbtRepair, &webGIF, &lblProgMI})
    hidden->Visible = false;
}

std::array<PictureBox*, 6> MainForm::PagePictures() {
  return {&picPrivacy, &picSystem, &picRegistry, &picAdv, &picOpt, &picOne};
}

}  // namespace tavix
