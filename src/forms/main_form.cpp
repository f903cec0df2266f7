#include "forms/main_form.h"

#include "forms/product.h"

namespace tavix {

MainForm::MainForm() {
  Caption = u"Tavix";
  picMini.ToolTipText = u"Minimize";
  picClose.ToolTipText = u"Close";
  picHelp.ToolTipText = u"Help";
  picCommend.ToolTipText = u"Recommend Tavix to a friend";
  picPrivacy.ToolTipText = u"Privacy (P)";
  picSystem.ToolTipText = u"System (S)";
  picRegistry.ToolTipText = u"Registry (R)";
  picAdv.ToolTipText = u"Advanced (A)";
  picOpt.ToolTipText = u"Options (O)";
  picOne.ToolTipText = u"One-click Clean/Repair (1)";
  picPrivacy.BorderStyle = 1;
  lblVer.Caption = Concat(u"v", kProductVersion);
  lblOpt.Caption = u"Click here";
  lblOptPrompt.Caption = u"to set related option(s).";
  lblOpt.Visible = false;
  lblOptPrompt.Visible = false;
  lst.Visible = false;
  trvRes.Visible = false;
  cbxAll.Caption = u"Check All";
  cbxAll.SetValue(1);
  sbtToolbar[0].Caption = u"Execute";
  sbtToolbar[1].Caption = u"Open";
  sbtToolbar[2].Caption = u"Properties...";
  sbtToolbar[3].Caption = u"Invert Check";
  sbtScan.Caption = u"Scan";
  sbtCancel.Caption = u"Cancel";
  sbtClean.Caption = u"Clean";
  sbtRepair.Caption = u"Repair";
  sbtCancel.Visible = false;
  sbtRepair.Visible = false;
  webGIF.Visible = false;
  lblProgMI.Visible = false;
  lblProgS.Caption = u"Please click <Scan> or press <F3> to start current cleaning job.";
  lblTimeP.Caption = u"Expended";
  lblTime.Caption = u"? second(s).";
  lblSum.Caption = u"Sum: ? item(s), ? KB found.";
  lsvResult.ColumnHeaders = {{
      {u"      Type", 3528, 0},
      {u"Name", 3528, 0},
      {u"Size (KB)", 1764, 0},
      {u"Location", 9878, 0},
      {u"", 0, 0},
  }};
}

// What the program itself reads back, and the name of the product, stay out of translation.
std::vector<NamedText> MainForm::Texts() {
  FormTexts texts;
  texts.AddToolTip(u"picMini", picMini).AddToolTip(u"picClose", picClose);
  texts.AddToolTip(u"picHelp", picHelp).AddToolTip(u"picCommend", picCommend);
  texts.AddToolTip(u"picPrivacy", picPrivacy).AddToolTip(u"picSystem", picSystem);
  texts.AddToolTip(u"picRegistry", picRegistry).AddToolTip(u"picAdv", picAdv);
  texts.AddToolTip(u"picOpt", picOpt).AddToolTip(u"picOne", picOne);
  texts.Add(u"lblOpt", lblOpt.Caption).Add(u"lblOptPrompt", lblOptPrompt.Caption);
  texts.Add(u"cbxAll", cbxAll.Caption).AddAll(u"sbtToolbar", sbtToolbar);
  texts.Add(u"sbtScan", sbtScan.Caption).Add(u"sbtCancel", sbtCancel.Caption);
  texts.Add(u"sbtClean", sbtClean.Caption).Add(u"sbtRepair", sbtRepair.Caption);
  texts.Add(u"lblProgS", lblProgS.Caption).Add(u"lblTimeP", lblTimeP.Caption);
  texts.Add(u"lblTime", lblTime.Caption).Add(u"lblSum", lblSum.Caption);
  // The last column has no title: it is there for sorting alone.
  texts.AddHeaders(u"lsvResult", lsvResult, ListView::kColumns - 1);
  return texts.Take();
}

std::array<PictureBox*, 6> MainForm::PagePictures() {
  return {&picPrivacy, &picSystem, &picRegistry, &picAdv, &picOpt, &picOne};
}

}  // namespace tavix
