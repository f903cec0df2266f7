#include "window/win32/options_window.h"

#include <utility>

#include "forms/options_form.h"
#include "window/layout.h"
#include "window/win32/dialog_check_binding.h"
#include "window/win32/dialog_ids.h"
#include "window/win32/dialog_label_binding.h"
#include "window/win32/frame_binding.h"
#include "window/win32/image_binding.h"
#include "window/win32/list_box_binding.h"
#include "window/win32/one_click_tree_binding.h"
#include "window/win32/option_button_binding.h"
#include "window/win32/option_list_binding.h"
#include "window/win32/page_tree_binding.h"
#include "window/win32/push_binding.h"

namespace tavix::win32 {
namespace {

using Look = DialogLabelBinding::Look;

// Makes the controls in tab order, page by page.
class Maker {
 public:
  Maker(WindowContext& context, BoxListener& listener, std::vector<std::unique_ptr<Binding>>& bindings)
      : context_(context), listener_(listener), bindings_(bindings) {}

  void MakeAll() {
    Add<PageTreeBinding>(form_.trv, kIdPageTree, form_.Caption);
    Add<ImageBinding>(form_.picBig, kIdPagePicture);
    Add<DialogLabelBinding>(form_.lblOpt, kIdPageTitle, Look::kTitle);
    Add<DialogLabelBinding>(form_.lblRemark, kIdPageRemark, Look::kRemark);
    MakeOneClick();
    MakeJunkTypes();
    MakeDuplicates();
    MakeMethod();
    MakeOthers();
    Add<ButtonBinding>(form_.sbtRecommend, kIdRecommend);
    BeginGroup();
    Add<ButtonBinding>(form_.sbtSave, kIdSave, true);
    Add<ButtonBinding>(form_.sbtClose, kIdCloseOptions);
  }

 private:
  template <class Kind, class Model, class... More>
  void Add(Model& model, int id, More&&... more) {
    auto binding = std::make_unique<Kind>(model, context_, id, std::forward<More>(more)...);
    last_ = binding->Window();
    page_.push_back(&model);
    bindings_.push_back(std::move(binding));
  }
  template <class Kind, class Models>
  void AddAll(Models& models, int id) {
    for (auto& model : models) Add<Kind>(model, id++);
  }
  template <class Models>
  void AddOptions(Models& models, int id) {
    for (auto& model : models) Add<OptionButtonBinding>(model, id++, &model == &models[0]);
  }
  // Arrow keys move from option to option up to here.
  void BeginGroup() const {
    SetWindowLongPtrW(last_, GWL_STYLE, GetWindowLongPtrW(last_, GWL_STYLE) | WS_GROUP);
  }
  // What has been made since then is on this page.
  void BeginPage() { page_.clear(); }
  void EndPage(Frame& frame) {
    bindings_.push_back(std::make_unique<PageBinding>(frame, context_, std::exchange(page_, {})));
  }

  void MakeOneClick() {
    BeginPage();
    Add<OneClickTreeBinding>(form_.trvOC, kIdOneClickTree, form_.lblOpt.Caption);
    EndPage(form_.fraOC);
  }

  void MakeJunkTypes() {
    BeginPage();
    Add<OptionListBinding>(form_.lsvJF, kIdJunkTypes, form_.lblOpt.Caption, true);
    AddAll<ButtonBinding>(form_.sbtJF, kIdJunkButtons);
    EndPage(form_.fraJF);
  }

  void MakeDuplicates() {
    BeginPage();
    Add<GroupBinding>(form_.fraDFGroup[0], kIdDuplicateGroups);
    AddAll<DialogCheckBinding>(form_.cbxDF, kIdDuplicateRules);
    Add<TextBoxBinding>(form_.txtDFSS, kIdLeastSize, listener_, &form_.cbxDF[3].Caption);
    Add<DialogLabelBinding>(form_.lblDFSS, kIdLeastSizeUnit);
    Add<GroupBinding>(form_.fraDFGroup[1], kIdDuplicateGroups + 1);
    AddOptions(form_.optDF, kIdScopes);
    Add<ListBoxBinding>(form_.lstDF, kIdCommonTypes, form_.optDF[1].Caption);
    BeginGroup();
    AddAll<ButtonBinding>(form_.sbtDF, kIdCommonTypeButtons);
    EndPage(form_.fraDF);
  }

  void MakeMethod() {
    BeginPage();
    AddOptions(form_.optCM, kIdMethods);
    Add<TextBoxBinding>(form_.txtDF, kIdBackupFolder, listener_, &form_.optCM[2].Caption);
    BeginGroup();
    Add<ButtonBinding>(form_.sbtCM, kIdBrowse);
    EndPage(form_.fraCM);
  }

  void MakeOthers() {
    BeginPage();
    Add<GroupBinding>(form_.fraOOGroup[0], kIdOtherGroups);
    AddOptions(form_.optOO, kIdSizes);
    for (size_t i = 0; i < form_.lblOOSize.size(); ++i) {
      Add<DialogLabelBinding>(form_.lblOOSize[i], kIdSizeNotes + static_cast<int>(i), Look::kNote);
      if (i == 0) BeginGroup();
    }
    Add<GroupBinding>(form_.fraOOGroup[1], kIdOtherGroups + 1);
    for (size_t i = 0; i < form_.txtOO.size(); ++i) {
      Add<DialogLabelBinding>(form_.lblOODays[i], kIdDaysLabels + static_cast<int>(i));
      Add<TextBoxBinding>(form_.txtOO[i], kIdDays + static_cast<int>(i), listener_);
    }
    Add<GroupBinding>(form_.fraOOGroup[2], kIdOtherGroups + 2);
    Add<OptionListBinding>(form_.lsvOO, kIdExceptFolders, form_.fraOOGroup[2].Caption, false);
    AddAll<ButtonBinding>(form_.sbtOO, kIdExceptFolderButtons);
    EndPage(form_.fraOO);
  }

  OptionsForm& form_ = frmPubOptions;
  WindowContext& context_;
  BoxListener& listener_;
  std::vector<std::unique_ptr<Binding>>& bindings_;
  std::vector<Control*> page_;
  HWND last_ = nullptr;
};

}  // namespace

OptionsWindow::OptionsWindow()
    : DialogWindow(frmPubOptions, kOptionsWindowClass, &frmPubOptions.sbtSave, &frmPubOptions.sbtClose) {}

void OptionsWindow::Bind(WindowContext& context, BoxListener& listener, Bindings& bindings) {
  Maker(context, listener, bindings).MakeAll();
}

void OptionsWindow::LayOut(const WidthOf& widthOf) { LayOutOptionsForm(widthOf); }

Control& OptionsWindow::First() { return frmPubOptions.trv; }

}  // namespace tavix::win32
