#include <iterator>

#include "forms/main_form.h"
#include "window/win32/buttons.h"
#include "window/win32/control_ids.h"
#include "window/win32/labels.h"
#include "window/win32/lists.h"
#include "window/win32/main_window.h"
#include "window/win32/status_line.h"
#include "window/win32/title_link.h"
#include "window/win32/tree_binding.h"
#include "window/win32/web_binding.h"

namespace tavix::win32 {

void AddMainFormControls(BindingList& controls) {
  MainForm& form = frmPubMain;

  controls.Add<TitleLinkBinding>(form.lblProdLogo, kIdProductLink, form.picTitle, TitleName::kInPicture);
  controls.Add<PictureBinding>(form.picHelp, kIdTitleHelp, &Palette::title);
  controls.Add<PictureBinding>(form.picCommend, kIdTitleCommend, &Palette::title);
  controls.Add<PictureBinding>(form.picMini, kIdMini, &Palette::title);
  controls.Add<PictureBinding>(form.picClose, kIdClose, &Palette::title);
  controls.Add<TitleLinkBinding>(form.lblCompLogo, kIdMakerLink, form.picTitle, TitleName::kMissing);
  controls.Add<LabelBinding>(form.lblVer, kIdVersion, kTitleStripLabel, &form.picTitle);

  constexpr int kPageIds[] = {kIdPrivacy, kIdSystem, kIdRegistry, kIdAdvanced, kIdOptions, kIdOneClick};
  for (size_t i = 0; i < std::size(kPageIds); ++i)
    controls.Add<PictureBinding>(*form.PagePictures()[i], kPageIds[i], &Palette::background);

  // The privacy tree lies in front of the function list and the scope tree.
  WindowBinding& privacyTree = controls.Add<TreeBinding>(
      form.trvPrivacy, kIdPrivacyTree, PlainName(form.trvPrivacy.AccessibleName), kFunctionTree);
  controls.Add<CheckListBinding>(form.lst, kIdFunctions, PlainName(form.lst.AccessibleName));
  controls.Add<TreeBinding>(form.trvRes, kIdScopeTree, PlainName(form.trvRes.AccessibleName), kFolderTree)
      .HideBelow(privacyTree);

  controls.Add<ListViewBinding>(form.lsvResult, kIdResult, PlainName(form.lsvResult.AccessibleName),
                                kResultList);
  controls.Add<CheckBoxBinding>(form.cbxAll, kIdCheckAll, CheckBoxStyle::kMainWindow);
  controls.AddAll<ButtonBinding>(form.sbtToolbar, kIdToolbar);

  controls.Add<StatusLineBinding>(form.lblProgS, kIdStatus);
  controls.Add<LinkBinding>(form.lblOpt, kIdOptionLink);
  controls.Add<LabelBinding>(form.lblOptPrompt, kIdOptionPrompt, kPanelLabel);
  controls.Add<ProgressBinding>(form.lblProgMO, kIdProgress, form.lblProgMI);
  controls.Add<LabelBinding>(form.lblTimeP, kIdTimePrefix, kPanelLabel);
  controls.Add<LabelBinding>(form.lblTime, kIdTime, kPanelLabel);
  controls.Add<LabelBinding>(form.lblSum, kIdSum, kSumLabel);
  controls.Add<WebBinding>(form.webGIF, kIdBusyPage, form.mhtm);
  controls.Add<ButtonBinding>(form.sbtScan, kIdScan, true);
  controls.Add<ButtonBinding>(form.sbtCancel, kIdCancel, true);
  controls.Add<ButtonBinding>(form.sbtClean, kIdClean, true);
  controls.Add<ButtonBinding>(form.sbtRepair, kIdRepair, true);
}

}  // namespace tavix::win32
