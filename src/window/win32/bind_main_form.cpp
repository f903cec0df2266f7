#include "window/win32/bind_main_form.h"

#include <iterator>
#include <type_traits>
#include <utility>

#include "forms/main_form.h"
#include "window/win32/check_box_binding.h"
#include "window/win32/check_list_binding.h"
#include "window/win32/control_ids.h"
#include "window/win32/label_binding.h"
#include "window/win32/list_view_binding.h"
#include "window/win32/picture_binding.h"
#include "window/win32/progress_binding.h"
#include "window/win32/push_binding.h"
#include "window/win32/tree_binding.h"
#include "window/win32/web_binding.h"

namespace tavix::win32 {

std::vector<std::unique_ptr<WindowBinding>> BindMainForm(WindowContext& context) {
  std::vector<std::unique_ptr<WindowBinding>> bindings;
  const auto add = [&]<class Kind, class Model>(std::type_identity<Kind>, Model& model, auto&&... arguments) {
    bindings.push_back(
        std::make_unique<Kind>(model, context, std::forward<decltype(arguments)>(arguments)...));
  };
  constexpr std::type_identity<PictureBinding> kPicture;
  constexpr std::type_identity<ButtonBinding> kButton;
  constexpr std::type_identity<LabelBinding> kLabel;
  constexpr std::type_identity<TreeBinding> kTree;
  MainForm& form = frmPubMain;

  // Tab order is the order in which they are made.
  constexpr int kPageIds[] = {kIdPrivacy, kIdSystem, kIdRegistry, kIdAdvanced, kIdOptions, kIdOneClick};
  for (size_t i = 0; i < std::size(kPageIds); ++i)
    add(kPicture, *form.PagePictures()[i], kPageIds[i], context.colors.ground);

  // The scope tree stands in front of the function list, and the privacy tree in front of both.
  add(kTree, form.trvPrivacy, kIdPrivacyTree, u"Privacy functions", false);
  WindowBinding& privacyTree = *bindings.back();
  add(kTree, form.trvRes, kIdScopeTree, u"Drives and folders", true);
  bindings.back()->LieUnder(privacyTree);
  add(std::type_identity<CheckListBinding>(), form.lst, kIdFunctions, u"Functions");

  add(std::type_identity<ListViewBinding>(), form.lsvResult, kIdResult, u"Results");
  add(std::type_identity<CheckBoxBinding>(), form.cbxAll, kIdCheckAll);
  for (size_t i = 0; i < form.sbtToolbar.size(); ++i)
    add(kButton, form.sbtToolbar[i], kIdToolbar + static_cast<int>(i));

  add(kLabel, form.lblProgS, kIdStatus);
  add(std::type_identity<LinkBinding>(), form.lblOpt, kIdOptionLink);
  add(kLabel, form.lblOptPrompt, kIdOptionPrompt);
  bindings.push_back(std::make_unique<ProgressBinding>(form.lblProgMO, form.lblProgMI, context, kIdProgress));
  add(kLabel, form.lblTimeP, kIdTimePrefix);
  add(kLabel, form.lblTime, kIdTime);
  add(kLabel, form.lblSum, kIdSum, static_cast<UINT>(DT_RIGHT | DT_SINGLELINE));
  add(std::type_identity<WebBinding>(), form.webGIF, kIdBusyPage, form.mhtm);
  add(kButton, form.sbtScan, kIdScan, true);
  add(kButton, form.sbtCancel, kIdCancel, true);
  add(kButton, form.sbtClean, kIdClean, true);
  add(kButton, form.sbtRepair, kIdRepair, true);

  add(kPicture, form.picHelp, kIdTitleHelp, context.colors.title);
  add(kPicture, form.picCommend, kIdTitleCommend, context.colors.title);
  add(kPicture, form.picMini, kIdMini, context.colors.title);
  add(kPicture, form.picClose, kIdClose, context.colors.title);
  add(std::type_identity<TitleLabelBinding>(), form.lblVer, kIdVersion, form.picTitle);
  return bindings;
}

}  // namespace tavix::win32
