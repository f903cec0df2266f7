#include "window/wiring.h"

#include "advanced/advanced_scan.h"
#include "advanced/duplicate_loader.h"
#include "catalogue/function_list.h"
#include "catalogue/pages.h"
#include "catalogue/privacy_tree.h"
#include "catalogue/scope_tree.h"
#include "catalogue/selection.h"
#include "clean/clean_driver.h"
#include "clean/item_operations.h"
#include "clean/one_click.h"
#include "clean/row_description.h"
#include "forms/about_form.h"
#include "forms/main_form.h"
#include "forms/options_form.h"
#include "forms/type_form.h"
#include "frame/start_up.h"
#include "junk/junk_definitions.h"
#include "junk/junk_editor.h"
#include "options/common_types.h"
#include "options/number_box.h"
#include "options/one_click_tree.h"
#include "options/option_pages.h"
#include "options/options_dialog.h"
#include "options/options_page_tree.h"
#include "scan/result_items.h"
#include "scan/scan_driver.h"
#include "scan/scan_function.h"
#include "window/appearance.h"
#include "window/help.h"
#include "window/input.h"
#include "window/layout.h"
#include "window/update.h"

namespace tavix {
namespace {

using namespace mdlPubSelf;

// Ties the clicks on an array of controls to one handler, which gets the index of the one clicked.
template <class Controls>
void WireClicks(Controls& controls, void (*handler)(int)) {
  for (size_t i = 0; i < controls.size(); ++i) {
    controls[i].Click = [handler, i] { handler(static_cast<int>(i)); };
  }
}

void WireMainForm() {
  MainForm& form = frmPubMain;
  form.KeyDown = Form_KeyDown;

  // Title strip.
  form.picMini.MouseUp = picMini_MouseUp;
  form.picClose.MouseUp = picClose_MouseUp;
  form.picHelp.Click = picHelp_Click;
  form.picCommend.Click = picCommend_Click;
  form.lblProdLogo.MouseUp = lblProdLogo_MouseUp;
  form.lblCompLogo.MouseUp = lblCompLogo_MouseUp;

  // Pages.
  form.picPrivacy.MouseUp = picPrivacy_MouseUp;
  form.picSystem.MouseUp = picSystem_MouseUp;
  form.picRegistry.MouseUp = picRegistry_MouseUp;
  form.picAdv.MouseUp = picAdv_MouseUp;
  form.picOpt.MouseUp = picOpt_MouseUp;
  form.picOne.MouseUp = picOne_MouseUp;

  // Functions.
  form.lst.Click = lst_Click;
  form.lst.ItemCheck = lst_ItemCheck;
  form.trvPrivacy.NodeCheck = trvPrivacy_NodeCheck;
  form.trvPrivacy.NodeClick = trvPrivacy_NodeClick;
  form.trvRes.NodeCheck = trvRes_NodeCheck;
  form.trvRes.NodeClick = trvRes_NodeClick;
  form.lblOpt.Click = lblOpt_Click;

  // Results.
  form.cbxAll.Click = cbxAll_Click;
  form.lsvResult.ColumnClick = lsvResult_ColumnClick;
  form.lsvResult.ItemClick = lsvResult_ItemClick;
  form.lsvResult.MouseUp = lsvResult_MouseUp;
  WireClicks(form.sbtToolbar, sbtToolbar_Click);

  // Job.
  form.sbtScan.Click = sbtScan_Click;
  form.sbtCancel.Click = sbtCancel_Click;
  form.sbtClean.Click = sbtClean_Click;
  form.sbtRepair.Click = sbtRepair_Click;
  form.timLoader.Tick = timLoader_Timer;
  form.webGIF.DocumentComplete = webGIF_DocumentComplete;
  form.mhtm.oncontextmenu = mhtm_oncontextmenu;

  // The mouse over icons, and over places that drag the window.
  for (PictureBox* icon : {&form.picMini, &form.picClose, &form.picHelp, &form.picCommend, &form.picPrivacy,
                           &form.picSystem, &form.picRegistry, &form.picAdv, &form.picOpt, &form.picOne}) {
    icon->MouseMove = [icon](int) { LightIcon(*icon); };
  }
  form.lblBorder.MouseMove = form.picTitle.MouseMove = lblBorder_MouseMove;
  form.lblFrame.MouseMove = form.lst.MouseMove = MoveWindowByMouse;
  form.trvPrivacy.MouseMove = form.trvRes.MouseMove = MoveWindowByMouse;
}

void WireOptionsForm() {
  OptionsForm& form = frmPubOptions;
  form.Load = frmPubOptions_Load;
  form.Resize = frmPubOptions_Resize;
  form.trv.NodeClick = trv_NodeClick;
  form.sbtSave.Click = sbtSave_Click;
  form.sbtRecommend.Click = sbtRecommend_Click;
  form.sbtClose.Click = sbtClose_Click;

  form.trvOC.NodeCheck = trvOC_NodeCheck;

  form.lsvJF.ColumnClick = lsvJF_ColumnClick;
  form.lsvJF.DblClick = lsvJF_DblClick;
  form.lsvJF.ItemClick = lsvJF_ItemClick;
  form.lsvJF.KeyDown = lsvJF_KeyDown;
  WireClicks(form.sbtJF, sbtJF_Click);

  WireClicks(form.cbxDF, cbxDF_Click);
  WireClicks(form.optDF, optDF_Click);
  form.lstDF.KeyUp = lstDF_KeyUp;
  WireClicks(form.sbtDF, sbtDF_Click);

  WireClicks(form.optCM, optCM_Click);
  form.sbtCM.Click = sbtCM_Click;
  form.txtDF.GotFocus = txtDF_GotFocus;
  form.txtDF.LostFocus = txtDF_LostFocus;

  form.lsvOO.ColumnClick = lsvOO_ColumnClick;
  WireClicks(form.sbtOO, sbtOO_Click);

  for (const NumberBox& number : NumberBoxes()) {
    number.box->GotFocus = [&number] { NumberBox_GotFocus(number); };
    number.box->KeyPress = NumberBox_KeyPress;
    number.box->LostFocus = [&number] { NumberBox_LostFocus(number); };
  }
}

void WireTypeForm() {
  TypeForm& form = frmPubType;
  form.Load = frmPubType_Load;
  form.KeyDown = frmPubType_KeyDown;
  for (size_t i = 0; i < form.txt.size(); ++i) {
    form.txt[i].GotFocus = [i] { txt_GotFocus(static_cast<int>(i)); };
  }
  WireClicks(form.sbt, sbt_Click);

  int index = 0;
  for (MenuItem* entry : form.menr.Items) {
    entry->Click = [index] { sbtToolbar_Click(index); };
    ++index;
  }
  form.menhh.Click = menhh_Click;
  form.menhf.Click = menhf_Click;
  form.menhw.Click = menhw_Click;
  form.menhc.Click = menhc_Click;
  form.menhl.Click = menhl_Click;
  form.menha.Click = menha_Click;
}

void WireAboutForm() {
  AboutForm& form = frmPubAbout;
  form.Load = frmPubAbout_Load;
  form.sbtMailer.Click = menhc_Click;
  form.sbtWeb.Click = menhw_Click;
  form.sbtClose.Click = sbtAboutClose_Click;
}

void WireStartUp() {
  frameSteps.BuildPrivacyTree = BuildPrivacyTree;
  frameSteps.LoadJunkDefinitions = LoadJunkDefinitions;
  frameSteps.LayOutWindow = [] {
    ChooseInterfaceSize();
    LayOutMainForm();
    LoadIconPictures();
  };
  frameSteps.SendEmbeddedPage = SendEmbeddedPage;
  frameSteps.ColorControls = ColorControls;
  frameSteps.CheckForUpdate = CheckForUpdate;
  frameSteps.UnloadOptions = [] { frmPubOptions.Unload(); };
  frameSteps.UnloadTypeEditor = [] { frmPubType.Unload(); };
  frameSteps.UnloadAbout = [] { frmPubAbout.Unload(); };
  advancedScan = RunAdvancedScan;
}

}  // namespace

void WireForms() {
  WireMainForm();
  WireOptionsForm();
  WireTypeForm();
  WireAboutForm();
  WireStartUp();
}

}  // namespace tavix
