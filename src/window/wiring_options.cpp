#include "window/wiring_options.h"

#include "forms/options_form.h"
#include "forms/type_form.h"
#include "frame/start_up.h"
#include "junk/junk_editor.h"
#include "options/common_types.h"
#include "options/number_box.h"
#include "options/one_click_tree.h"
#include "options/option_pages.h"
#include "options/options_dialog.h"
#include "options/options_page_tree.h"

namespace tavix {
namespace {

// The handler of an array of controls gets the index of the one in question.
template <class Controls>
void WireClicks(Controls& controls, void (*handler)(int)) {
  for (size_t i = 0; i < controls.size(); ++i) {
    controls[i].Click = [handler, i] { handler(static_cast<int>(i)); };
  }
}

void WireNumberBoxes() {
  for (const mdlPubSelf::NumberBox& number : mdlPubSelf::NumberBoxes()) {
    number.box->GotFocus = [&number] { mdlPubSelf::NumberBox_GotFocus(number); };
    number.box->KeyPress = mdlPubSelf::NumberBox_KeyPress;
    number.box->LostFocus = [&number] { mdlPubSelf::NumberBox_LostFocus(number); };
  }
}

void WireJunkTypes() {
  ListView& list = frmPubOptions.lsvJF;
  list.ColumnClick = mdlPubSelf::lsvJF_ColumnClick;
  list.DblClick = mdlPubSelf::lsvJF_DblClick;
  list.ItemClick = mdlPubSelf::lsvJF_ItemClick;
  list.KeyDown = mdlPubSelf::lsvJF_KeyDown;
  WireClicks(frmPubOptions.sbtJF, mdlPubSelf::sbtJF_Click);

  TypeForm& form = frmPubType;
  form.Load = mdlPubSelf::frmPubType_Load;
  form.KeyDown = mdlPubSelf::frmPubType_KeyDown;
  WireClicks(form.sbt, mdlPubSelf::sbt_Click);
  for (size_t i = 0; i < form.txt.size(); ++i) {
    form.txt[i].GotFocus = [i] { mdlPubSelf::txt_GotFocus(static_cast<int>(i)); };
  }
}

}  // namespace

void WireOptionsForm() {
  OptionsForm& form = frmPubOptions;
  form.Load = mdlPubSelf::frmPubOptions_Load;
  form.Resize = mdlPubSelf::frmPubOptions_Resize;
  form.trv.NodeClick = mdlPubSelf::trv_NodeClick;
  form.sbtSave.Click = mdlPubSelf::sbtSave_Click;
  form.sbtRecommend.Click = mdlPubSelf::sbtRecommend_Click;
  form.sbtClose.Click = mdlPubSelf::sbtClose_Click;

  form.trvOC.NodeCheck = mdlPubSelf::trvOC_NodeCheck;
  WireJunkTypes();
  WireClicks(form.cbxDF, mdlPubSelf::cbxDF_Click);
  WireClicks(form.optDF, mdlPubSelf::optDF_Click);
  form.lstDF.KeyUp = mdlPubSelf::lstDF_KeyUp;
  WireClicks(form.sbtDF, mdlPubSelf::sbtDF_Click);
  WireClicks(form.optCM, mdlPubSelf::optCM_Click);
  form.sbtCM.Click = mdlPubSelf::sbtCM_Click;
  form.txtDF.GotFocus = mdlPubSelf::txtDF_GotFocus;
  form.txtDF.LostFocus = mdlPubSelf::txtDF_LostFocus;
  WireClicks(form.sbtOO, mdlPubSelf::sbtOO_Click);
  form.lsvOO.ColumnClick = mdlPubSelf::lsvOO_ColumnClick;
  WireNumberBoxes();

  mdlPubSelf::frameSteps.UnloadOptions = [] { frmPubOptions.Unload(); };
  mdlPubSelf::frameSteps.UnloadTypeEditor = [] { frmPubType.Unload(); };
}

}  // namespace tavix
