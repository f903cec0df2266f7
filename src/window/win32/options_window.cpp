#include "forms/options_form.h"
#include "window/layout.h"
#include "window/win32/buttons.h"
#include "window/win32/control_ids.h"
#include "window/win32/dialogs.h"
#include "window/win32/labels.h"
#include "window/win32/lists.h"
#include "window/win32/tree_binding.h"

namespace tavix::win32 {
namespace {

template <class Options>
void AddOptions(BindingList& controls, Options& options, int firstId) {
  for (auto& option : options) controls.Add<OptionButtonBinding>(option, firstId++, &option == &options[0]);
}

void AddOneClick(BindingList& controls, OptionsForm& form) {
  controls.BeginPage();
  controls.Add<TreeBinding>(form.trvOC, kIdOneClickTree, PlainName(form.lblOpt.Caption), kOneClickTree);
  controls.EndPage(form.fraOC);
}

void AddJunkTypes(BindingList& controls, OptionsForm& form) {
  controls.BeginPage();
  controls.Add<ListViewBinding>(form.lsvJF, kIdJunkTypes, PlainName(form.lblOpt.Caption), kTickedOptionList);
  controls.AddAll<ButtonBinding>(form.sbtJF, kIdJunkButtons);
  controls.EndPage(form.fraJF);
}

void AddDuplicates(BindingList& controls, OptionsForm& form) {
  controls.BeginPage();
  controls.Add<GroupBinding>(form.fraDFGroup[0], kIdDuplicateGroups);
  controls.AddAll<CheckBoxBinding>(form.cbxDF, kIdDuplicateRules, CheckBoxStyle::kDialog);
  controls.Add<TextBoxBinding>(form.txtDFSS, kIdLeastSize, PlainName(form.cbxDF[3].Caption));
  controls.Add<LabelBinding>(form.lblDFSS, kIdLeastSizeUnit, kDialogLabel);
  controls.Add<GroupBinding>(form.fraDFGroup[1], kIdDuplicateGroups + 1);
  AddOptions(controls, form.optDF, kIdScopes);
  controls.Add<ListBoxBinding>(form.lstDF, kIdCommonTypes, PlainName(form.optDF[1].Caption)).BeginGroup();
  controls.AddAll<ButtonBinding>(form.sbtDF, kIdCommonTypeButtons);
  controls.EndPage(form.fraDF);
}

void AddMethod(BindingList& controls, OptionsForm& form) {
  controls.BeginPage();
  AddOptions(controls, form.optCM, kIdMethods);
  controls.Add<TextBoxBinding>(form.txtDF, kIdBackupFolder, PlainName(form.optCM[2].Caption)).BeginGroup();
  controls.Add<ButtonBinding>(form.sbtCM, kIdBrowse);
  controls.EndPage(form.fraCM);
}

void AddOthers(BindingList& controls, OptionsForm& form) {
  controls.BeginPage();
  controls.Add<GroupBinding>(form.fraOOGroup[0], kIdOtherGroups);
  AddOptions(controls, form.optOO, kIdSizes);
  controls.AddAll<LabelBinding>(form.lblOOSize, kIdSizeNotes, kDialogNote).BeginGroup();
  controls.Add<GroupBinding>(form.fraOOGroup[1], kIdOtherGroups + 1);
  for (size_t i = 0; i < form.txtOO.size(); ++i) {
    controls.Add<LabelBinding>(form.lblOODays[i], kIdDaysLabels + static_cast<int>(i), kDialogLabel);
    controls.Add<TextBoxBinding>(form.txtOO[i], kIdDays + static_cast<int>(i));
  }
  controls.Add<GroupBinding>(form.fraOOGroup[2], kIdOtherGroups + 2);
  controls.Add<ListViewBinding>(form.lsvOO, kIdExceptFolders, PlainName(form.fraOOGroup[2].Caption),
                                kPlainOptionList);
  controls.AddAll<ButtonBinding>(form.sbtOO, kIdExceptFolderButtons);
  controls.EndPage(form.fraOO);
}

}  // namespace

OptionsWindow::OptionsWindow()
    : DialogWindow({.form = frmPubOptions,
                    .windowClass = kOptionsWindowClass,
                    .first = frmPubOptions.trv,
                    .enter = &frmPubOptions.sbtSave,
                    .escape = frmPubOptions.sbtClose,
                    .layOut = LayOutOptionsForm}) {}

void OptionsWindow::AddControls(BindingList& controls) {
  OptionsForm& form = frmPubOptions;
  controls.Add<TreeBinding>(form.trv, kIdPageTree, PlainName(form.Caption), kPageTree);
  controls.Add<ImageBinding>(form.picBig, kIdPagePicture);
  controls.Add<LabelBinding>(form.lblOpt, kIdPageTitle, kDialogTitle);
  controls.Add<LabelBinding>(form.lblRemark, kIdPageRemark, kDialogRemark);
  AddOneClick(controls, form);
  AddJunkTypes(controls, form);
  AddDuplicates(controls, form);
  AddMethod(controls, form);
  AddOthers(controls, form);
  controls.Add<ButtonBinding>(form.sbtRecommend, kIdRecommend).BeginGroup();
  controls.Add<ButtonBinding>(form.sbtSave, kIdSave, true);
  controls.Add<ButtonBinding>(form.sbtClose, kIdCloseOptions);
}

}  // namespace tavix::win32
