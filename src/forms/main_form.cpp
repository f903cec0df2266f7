#include "forms/main_form.h"

namespace tavix {

MainForm::MainForm() {
  picPrivacy.BorderStyle = 1;
  lblVer.Caption = u"v2.19.630";
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
  sbtToolbar[2].Caption = u"Properties";
  sbtToolbar[3].Caption = u"Invert";
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

std::array<PictureBox*, 6> MainForm::PagePictures() {
  return {&picPrivacy, &picSystem, &picRegistry, &picAdv, &picOpt, &picOne};
}

}  // namespace tavix
