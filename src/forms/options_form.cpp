#include "forms/options_form.h"

namespace tavix {

OptionsForm::OptionsForm() {
  Visible = false;
  Caption = u"Options";
  sbtSave.Caption = u"Sa&ve";
  sbtRecommend.Caption = u"Recomme&nd";
  sbtClose.Caption = u"&Close";
  for (Frame* page : {&fraJF, &fraDF, &fraCM, &fraOO}) page->Visible = false;

  lsvJF.ColumnHeaders[0] = {u"Description", 3600, 0};
  lsvJF.ColumnHeaders[1] = {u"Pattern", 2000, 0};
  sbtJF[0].Caption = u"&Add...";
  sbtJF[1].Caption = u"&Edit...";
  sbtJF[2].Caption = u"&Delete";
  sbtJF[3].Caption = u"Chec&k All";

  fraDFGroup[0].Caption = u"Duplicate Rule";
  fraDFGroup[1].Caption = u"Scanning Scope";
  cbxDF[0].Caption = u"Equal Name";
  cbxDF[0].Value = 1;
  cbxDF[0].Enabled = false;
  cbxDF[1].Caption = u"Equal &Size";
  cbxDF[2].Caption = u"Equal Modified &Time";
  cbxDF[3].Caption = u"File Size Must Be &Greater Than ";
  lblDFSS.Caption = u"KB";
  txtDFSS.Enabled = false;
  optDF[0].Caption = u"&All Files";
  optDF[1].Caption = u"&Only The Following Common Files";
  OptionButton::Group(optDF);
  sbtDF[0].Caption = u"A&dd...";
  sbtDF[1].Caption = u"D&elete";

  optCM[0].Caption = u"&Delete Permanently";
  optCM[1].Caption = u"Send to Recycle &Bin";
  optCM[2].Caption = u"&Move to The Following Folder";
  OptionButton::Group(optCM);
  sbtCM.Caption = u"Bro&wse...";

  fraOOGroup[0].Caption = u"Interface Size";
  fraOOGroup[1].Caption = u"'Last Accessed ? Days Before' Scanning Options";
  fraOOGroup[2].Caption = u"Exception Folder(s) (include sub folder(s)) for 'Advanced' Clean";
  optOO[0].Caption = u"&Auto";
  optOO[1].Caption = u"&Big";
  optOO[2].Caption = u"&Small";
  OptionButton::Group(optOO);
  lblOOSize[0].Caption = u"The main interface size is bases on the screen resolution.";
  lblOOSize[1].Caption = u"Applies to 1024 * 768+ screen resolution.";
  lblOOSize[2].Caption = u"Applies to 800 * 600+ screen resolution.";
  lblOOSize[3].Caption = u"Note: this option will be effective at next startup.";
  lblOODays[0].Caption = u"For 'Advanced -> &Last Accessed ? Days Before' Cleaning Function";
  lblOODays[1].Caption = u"For 'System -> &Old Prefetch data' Cleaning Function";
  lsvOO.ColumnHeaders[0] = {u"Folder", 3600, 0};
  lsvOO.ColumnHeaders[1] = {u"Description", 2000, 0};
  sbtOO[0].Caption = u"A&dd...";
  sbtOO[1].Caption = u"D&elete";
}

std::vector<NamedText> OptionsForm::Texts() {
  FormTexts texts;
  texts.Add(u"Caption", Caption).Add(u"sbtSave", sbtSave.Caption);
  texts.Add(u"sbtRecommend", sbtRecommend.Caption).Add(u"sbtClose", sbtClose.Caption);
  texts.AddHeaders(u"lsvJF", lsvJF, 2).AddAll(u"sbtJF", sbtJF);
  texts.AddAll(u"fraDFGroup", fraDFGroup).AddAll(u"cbxDF", cbxDF).Add(u"lblDFSS", lblDFSS.Caption);
  texts.AddAll(u"optDF", optDF).AddAll(u"sbtDF", sbtDF);
  texts.AddAll(u"optCM", optCM).Add(u"sbtCM", sbtCM.Caption);
  texts.AddAll(u"fraOOGroup", fraOOGroup).AddAll(u"optOO", optOO);
  texts.AddAll(u"lblOOSize", lblOOSize).AddAll(u"lblOODays", lblOODays);
  texts.AddHeaders(u"lsvOO", lsvOO, 2).AddAll(u"sbtOO", sbtOO);
  return texts.Take();
}

}  // namespace tavix
