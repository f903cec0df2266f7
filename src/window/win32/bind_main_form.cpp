#include "window/win32/bind_main_form.h"

#include <type_traits>
#include <utility>

#include "forms/main_form.h"
#include "window/win32/check_box_binding.h"
#include "window/win32/check_list_binding.h"
#include "window/win32/control_ids.h"
#include "window/win32/label_binding.h"
#include "window/win32/list_view_binding.h"
#include "window/win32/palette.h"
#include "window/win32/progress_binding.h"
#include "window/win32/push_binding.h"
#include "window/win32/tree_binding.h"

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

  add(kPicture, form.picPrivacy, kIdPrivacy, u"Privacy", u"P", false);
  add(kPicture, form.picSystem, kIdSystem, u"System", u"S", false);
  add(kPicture, form.picRegistry, kIdRegistry, u"Registry", u"R", false);
  add(kPicture, form.picAdv, kIdAdvanced, u"Advanced", u"A", false);
  add(kPicture, form.picOpt, kIdOptions, u"Options", u"O", false);
  add(kPicture, form.picOne, kIdOneClick, u"One-click", u"1", false);

  // The scope tree stands in front of the function list, and the privacy tree in front of both.
  add(kTree, form.trvPrivacy, kIdPrivacyTree, u"Privacy functions");
  add(kTree, form.trvRes, kIdScopeTree, u"Drives and folders");
  add(std::type_identity<CheckListBinding>(), form.lst, kIdFunctions, u"Functions");

  add(std::type_identity<ListViewBinding>(), form.lsvResult, kIdResult, u"Results");
  add(std::type_identity<CheckBoxBinding>(), form.cbxAll, kIdCheckAll);
  for (size_t i = 0; i < form.sbtToolbar.size(); ++i)
    add(kButton, form.sbtToolbar[i], kIdToolbar + static_cast<int>(i));

  add(kLabel, form.lblProgS, kIdStatus, kTextColor, context.panel.Get());
  add(std::type_identity<LinkBinding>(), form.lblOpt, kIdOptionLink);
  add(kLabel, form.lblOptPrompt, kIdOptionPrompt, kTextColor, context.panel.Get());
  bindings.push_back(std::make_unique<ProgressBinding>(form.lblProgMO, form.lblProgMI, context, kIdProgress));
  add(kLabel, form.lblTimeP, kIdTimePrefix, kTextColor, context.panel.Get());
  add(kLabel, form.lblTime, kIdTime, kTextColor, context.panel.Get());
  add(kLabel, form.lblSum, kIdSum, kTextColor, context.panel.Get());
  add(kButton, form.sbtScan, kIdScan, true);
  add(kButton, form.sbtCancel, kIdCancel, true);
  add(kButton, form.sbtClean, kIdClean, true);
  add(kButton, form.sbtRepair, kIdRepair, true);

  add(kPicture, form.picHelp, kIdTitleHelp, u"Help", u"?", true);
  add(kPicture, form.picCommend, kIdTitleCommend, u"Recommend to a friend", u"@", true);
  add(kPicture, form.picMini, kIdMini, u"Minimize", u"_", true);
  add(kPicture, form.picClose, kIdClose, u"Close", u"\u00d7", true);
  add(kLabel, form.lblVer, kIdVersion, kTitleTextColor, context.title.Get(), SS_RIGHT);
  return bindings;
}

}  // namespace tavix::win32
