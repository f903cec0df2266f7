#include "forms/options_form.h"

namespace tavix {

OptionsForm::OptionsForm() : Form(u"frmPubOptions") {
  Visible = false;
  for (Frame* page : {&fraJF, &fraDF, &fraCM, &fraOO}) page->Visible = false;
  Say(u"Caption", Caption, u"Options");
  Say(u"sbtSave", sbtSave.Caption, u"Sa&ve");
  Say(u"sbtRecommend", sbtRecommend.Caption, u"Recomme&nded");
  SayToolTip(
      u"sbtRecommend", sbtRecommend,
      u"Sets all options on all pages back to the recommended ones, at once. Your own junk types stay.");
  Say(u"sbtClose", sbtClose.Caption, u"&Close");

  SayColumns(u"lsvJF", lsvJF, {{u"Description", 3600}, {u"Pattern", 2000}});
  SayAll(u"sbtJF", sbtJF, {u"&Add...", u"&Edit...", u"&Delete", u"Chec&k All"});

  SayAll(u"fraDFGroup", fraDFGroup, {u"Duplicate Rule", u"Scanning Scope"});
  SayAll(u"cbxDF", cbxDF,
         {u"Equal Name", u"Equal &Size", u"Equal Modified &Time", u"File Size Must Be &Greater Than "});
  cbxDF[0].Value = 1;
  cbxDF[0].Enabled = false;
  txtDFSS.Enabled = false;
  Say(u"lblDFSS", lblDFSS.Caption, u"KB");
  SayAll(u"optDF", optDF, {u"&All Files", u"&Only The Following Common Files"});
  OptionButton::Group(optDF);
  SayAll(u"sbtDF", sbtDF, {u"A&dd...", u"D&elete"});

  SayAll(u"optCM", optCM,
         {u"&Delete Permanently", u"Send to Recycle &Bin", u"&Move to The Following Folder"});
  OptionButton::Group(optCM);
  Say(u"sbtCM", sbtCM.Caption, u"Bro&wse...");

  SayAll(u"fraOOGroup", fraOOGroup,
         {u"Interface Size", u"'Last Accessed ? Days Before' Scanning Options",
          u"Exception Folder(s) (include sub folder(s)) for 'Advanced' Clean"});
  SayAll(u"optOO", optOO, {u"&Auto", u"&Big", u"&Small"});
  OptionButton::Group(optOO);
  SayAll(u"lblOOSize", lblOOSize,
         {u"The main interface size is bases on the screen resolution.",
          u"Applies to 1024 * 768+ screen resolution.", u"Applies to 800 * 600+ screen resolution.",
          u"Note: this option will be effective at next startup."});
  SayAll(u"lblOODays", lblOODays,
         {u"For 'Advanced -> &Last Accessed ? Days Before' Cleaning Function",
          u"For 'System -> &Old Prefetch data' Cleaning Function"});
  SayColumns(u"lsvOO", lsvOO, {{u"Folder", 3600}, {u"Description", 2000}});
  SayAll(u"sbtOO", sbtOO, {u"A&dd...", u"D&elete"});
}

}  // namespace tavix
