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
  SaySentence(u"CurrentPage", sayCurrentPage, u"current page");
  Say(u"lblProdLogo", lblProdLogo.Caption, u"Website of Tavix");
  Say(u"lblCompLogo", lblCompLogo.Caption, u"Website of the maker");

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
  lsvResult.ColumnHeaders[2].Key = 4;
  SayRowSentences();

  SayAccessibleName(u"trvPrivacy", trvPrivacy, u"Privacy functions");
  SayAccessibleName(u"trvRes", trvRes, u"Drives and folders");
  SayAccessibleName(u"lst", lst, u"Functions");
  SayAccessibleName(u"lsvResult", lsvResult, u"Results");

  for (Control* hidden : std::initializer_list<Control*>{&lst, &trvRes, &lblOpt, &lblOptPrompt, &sbtCancel,
                                                         &sbtRepair, &webGIF, &lblProgMI})
    hidden->Visible = false;
}

void MainForm::SayRowSentences() {
  RowSentences& row = sayRow;
  SaySentence(u"Row.DeletesFile", row.DeletesFile, u"Deletes the file {path}.");
  SaySentence(u"Row.RecyclesFile", row.RecyclesFile, u"Moves the file {path} to the recycle bin.");
  SaySentence(u"Row.SavesFile", row.SavesFile, u"Moves the file {path} to the folder {backup}.");
  SaySentence(u"Row.DeletesFolder", row.DeletesFolder, u"Deletes the folder {path} if it is empty.");
  SaySentence(u"Row.RecyclesFolder", row.RecyclesFolder,
              u"Moves the folder {path} to the recycle bin if it is empty.");
  SaySentence(u"Row.SavesFolder", row.SavesFolder,
              u"Deletes the folder {path} if it is empty, and makes one of its name in the folder {backup}.");
  SaySentence(u"Row.HasNoMethod", row.HasNoMethod,
              u"Leaves {path} where it is: the settings have no cleaning method that Tavix knows.");
  SaySentence(u"Row.KeepsOddName", row.KeepsOddName,
              u"Leaves {path} alone: Windows would take its name for another one.");
  SaySentence(u"Row.DeletesAtRestart", row.DeletesAtRestart,
              u"Asks Windows to delete {path} at its next start.");
  SaySentence(
      u"Row.NamesFileTwice", row.NamesFileTwice,
      u"Asks Windows to delete {path} at its next start. That path has the file's name twice, so the file "
      u"stays.");
  SaySentence(u"Row.DeletesKey", row.DeletesKey,
              u"Deletes the key {key} from the registry, with all below it.");
  SaySentence(u"Row.DeletesDefault", row.DeletesDefault,
              u"Deletes the default value of the key {key} from the registry.");
  SaySentence(u"Row.DeletesValue", row.DeletesValue,
              u"Deletes the value \"{value}\" of the key {key} from the registry.");
  SaySentence(u"Row.RunsCommand", row.RunsCommand, u"Runs the command {command}.");
  SaySentence(u"Row.EmptiesLog", row.EmptiesLog, u"Empties the event log {log}.");
  SaySentence(u"Row.EmptiesBins", row.EmptiesBins, u"Empties the recycle bins of all drives.");
  SaySentence(u"Row.RowOnly", row.RowOnly, u"Takes this row off the list and does nothing else.");

  ToolbarSentences& toolbar = sayToolbar;
  SaySentence(u"Toolbar.NoneHighlighted", toolbar.NoneHighlighted,
              u"No row of the list is highlighted, so this command has nothing to work on.");
  constexpr std::array<TextView, 3> kNoneFit = {
      u"Only files and folders can be executed, and no highlighted row is one.",
      u"Only files, folders and entries of the registry can be opened, and no highlighted row is one.",
      u"Only files and folders have properties, and no highlighted row is one."};
  for (size_t i = 0; i < kNoneFit.size(); ++i)
    SaySentence(Member(u"Toolbar.NoneFit", i), toolbar.NoneFit[i], kNoneFit[i]);
  SaySentence(u"Toolbar.SomeLeftOut", toolbar.SomeLeftOut,
              u"Highlighted rows that are no files or folders were left out.");
}

std::array<PictureBox*, 6> MainForm::PagePictures() {
  return {&picPrivacy, &picSystem, &picRegistry, &picAdv, &picOpt, &picOne};
}

}  // namespace tavix
