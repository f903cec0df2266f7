#include "options/option_pages.h"

#include "forms/main_form.h"
#include "forms/options_form.h"
#include "frame/messages.h"
#include "frame/support/file_system_object.h"
#include "frame/support/pub_system.h"
#include "options/options_page_tree.h"
#include "platform/dialogs.h"

namespace tavix::mdlPubSelf {
namespace {

// The user's answer without blanks at its ends; empty if there is none.
Text Ask(TextView promptKey, TextView offered) {
  return Text(Trim(platform::dialogs->InputBox(GetMessageText(promptKey), offered).value_or(u"")));
}

// The chosen folder; empty if the user cancels.
Text ChooseFolder(TextView title) {
  Text folder;
  pubSystem.BrowseForFolder(frmPubOptions.hWnd, title, folder);
  return folder;
}

void AddFolder() {
  const Text folder = ChooseFolder(GetMessageText(u"EXCEPT_FOLDER"));
  if (folder.empty()) return;
  // These characters would end the description, or its line, in the settings.
  const Text description = BlankOut(Ask(u"INPUT_DESC", {}), u"\t\r\n/|");
  frmPubOptions.lsvOO.Add(folder).SetSubItems(1, description);
}

void DeleteFolders() {
  ListView& list = frmPubOptions.lsvOO;
  for (int row = list.Count(); row >= 1; --row) {
    if (list.Row(row).Selected()) list.Remove(row);
  }
}

}  // namespace

void cbxDF_Click(int index) {
  constexpr int kNeedLeast = 3;
  if (index == kNeedLeast) frmPubOptions.txtDFSS.Enabled = frmPubOptions.cbxDF[kNeedLeast].Value != 0;
}

void optDF_Click(int index) {
  const bool common = index == 1;
  frmPubOptions.lstDF.Enabled = common;
  for (Button& button : frmPubOptions.sbtDF) button.Enabled = common;
}

void optCM_Click(int index) {
  OptionsForm& form = frmPubOptions;
  const bool move = index == 2;
  form.txtDF.Enabled = move;
  form.sbtCM.Enabled = move;
  form.txtDF.BackColor = move ? frmPubMain.lst.BackColor.Get() : kButtonFace;
}

void sbtCM_Click() {
  Text folder = ChooseFolder(GetMessageText(u"BACKUP_FOLDER", u"Specify Backup Folder"));
  if (!folder.empty()) frmPubOptions.txtDF.Text = std::move(folder);
}

void txtDF_GotFocus() { frmPubOptions.txtDF.SelectAll(); }

void txtDF_LostFocus() {
  TextBox& box = frmPubOptions.txtDF;
  const TextView folder = Trim(box.Text.Get());
  // Say nothing about a folder that can't be looked at.
  if (!box.Enabled || fileSystemObject.FolderExists(folder) != false) return;
  Inform(
      Concat(u"'", folder, u"' ", GetMessageText(u"NO_FOLDER", u"does not exists, please specify another.")));
  ShowOptionsPage(kCleaningMethodPage);
  frmPubOptions.ActiveControl = &box;
  box.SelectAll();
}

void sbtOO_Click(int index) { index == 0 ? AddFolder() : DeleteFolders(); }

void lsvOO_ColumnClick(int header) { frmPubOptions.lsvOO.SortByClick(header - 1); }

}  // namespace tavix::mdlPubSelf
