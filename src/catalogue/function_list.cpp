#include "catalogue/function_list.h"

#include <algorithm>

#include "catalogue/functions.h"
#include "catalogue/selection.h"
#include "forms/main_form.h"
#include "forms/options_form.h"

namespace tavix::mdlPubSelf {
namespace {

// The function of any page with this caption in lst; null if there is none.
const CleaningFunction* FunctionByCaption(TextView caption) {
  for (const auto functions : {kSystemFunctions, kRegistryFunctions, kAdvancedFunctions}) {
    const auto found = std::ranges::find(functions, caption, CaptionOf);
    if (found != functions.end()) return &*found;
  }
  return nullptr;
}

TextView MasterRowDescription(TextView caption) {
  if (caption == kCheckAll) return u"Checks all clean/repair functions for this category.";
  if (caption == kUncheckAll) return u"Unchecks all clean/repair functions for this category.";
  return {};
}

TextView CaptionInFocus() { return frmPubMain.lst.List(frmPubMain.lst.ListIndex); }

}  // namespace

void lst_Click() {
  MainForm& form = frmPubMain;
  form.lblOpt.Visible = false;
  form.lblOptPrompt.Visible = false;
  if (const TextView words = MasterRowDescription(CaptionInFocus()); !words.empty()) {
    form.lblProgS.Caption = Text(words);
    return;
  }
  const CleaningFunction* function = FunctionByCaption(CaptionInFocus());
  if (function == nullptr) return;
  form.lblProgS.Caption = DescriptionOf(*function);
  form.lblOpt.Visible = function->OptionsPage != kNoOptions;
  form.lblOptPrompt.Visible = function->OptionsPage != kNoOptions;
}

void lblOpt_Click() {
  const CleaningFunction* function = FunctionByCaption(CaptionInFocus());
  if (function != nullptr && function->OptionsPage != kNoOptions) {
    frmPubOptions.piPage = function->OptionsPage;
  }
  frmPubOptions.ShowModal();
}

}  // namespace tavix::mdlPubSelf
