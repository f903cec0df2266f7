#include "options/options_dialog.h"

#include "forms/main_form.h"
#include "forms/options_form.h"
#include "frame/data_paths.h"
#include "frame/messages.h"
#include "frame/settings.h"
#include "frame/support/file_system_object.h"
#include "frame/support/pub_common.h"
#include "frame/support/pub_system.h"
#include "frame/tree_colors.h"
#include "junk/junk_definitions.h"
#include "junk/junk_list.h"
#include "options/one_click_tree.h"
#include "options/option_pages.h"
#include "options/option_values.h"
#include "options/options_page_tree.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr Color kWhite = 0xFFFFFF;

// Puts the controls back to their state before any earlier opening.
void Renew(OptionsForm& form) {
  form.ActiveControl = nullptr;
  // The first box is a fixed rule and stays ticked.
  for (size_t i = 1; i < form.cbxDF.size(); ++i) form.cbxDF[i].Value = 0;
  for (OptionButton& button : form.optDF) button.Value = false;
  for (OptionButton& button : form.optCM) button.Value = false;
  for (OptionButton& button : form.optOO) button.Value = false;
  for (ListView* list : {&form.lsvJF, &form.lsvOO}) {
    list->Sorted = false;
    list->SortOrder = 0;
  }
}

bool NeedsCommonType() {
  if (frmPubOptions.lstDF.ListCount() > 0 || !frmPubOptions.optDF[1].Value) return false;
  Inform(GetMessageText(u"NEED_COMM"));
  return true;
}

// Changes the row with the days on the Advanced page. Called before LastAccessedFile is loaded anew.
void ShowDaysOnAdvancedPage() {
  constexpr int kRow = 4;
  const Text& days = frmPubOptions.txtOO[0].Text;
  if (frmPubMain.picAdv.BorderStyle != 1 || LastAccessedFile == days) return;
  frmPubMain.lst.SetList(kRow, Concat(u"Last Accessed ", days, u" Days Before"));
}

}  // namespace

void frmPubOptions_Load() {
  OptionsForm& form = frmPubOptions;
  Renew(form);
  pubCommon.LoadFormTexts(form, TextCatalogue());
  BuildOneClickTree();
  ColorTreeLike(form.trvOC, form.lsvJF);
  for (const ListView* list : {&form.lsvJF, &form.lsvOO}) {
    pubSystem.AttachListColorHook(list->hWnd, true, form.hWnd, kWhite);
  }
  BuildPageTree();
  ColorTreeLike(form.trv, form.lsvJF);
  LoadOptionValues();
  ShowOptionsPage(form.piPage);
}

void frmPubOptions_Resize() { ShowOptions(kOneClickPage); }

void LoadOptionValues() {
  constexpr int kMove = 2;
  ShowOptions(kCleaningMethodPage);
  optCM_Click(frmPubOptions.optCM[kMove].Value ? kMove : 0);
  ShowOptions(kDuplicateFilesPage);
  ShowJunkTypes();
  ShowOptions(kOtherOptionsPage);
}

void sbtSave_Click() {
  if (NeedsCommonType()) return;
  SaveOptions(kOneClickPage);
  SaveOptions(kCleaningMethodPage);
  SaveOptions(kDuplicateFilesPage);
  SaveJunkTypes();
  LoadJunkDefinitions();
  SaveOptions(kOtherOptionsPage);
  ShowDaysOnAdvancedPage();
  LoadSettings();
}

void sbtRecommend_Click() {
  fileSystemObject.DeleteFile(kBuiltInJunkFile, true);
  LoadJunkDefinitions();
  WriteDefaultSettings();
  LoadSettings();
  LoadOptionValues();
  frmPubOptions_Resize();
}

void sbtClose_Click() { frmPubOptions.Unload(); }

}  // namespace tavix::mdlPubSelf
