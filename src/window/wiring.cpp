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
#include "forms/main_form.h"
#include "forms/type_form.h"
#include "frame/start_up.h"
#include "junk/junk_definitions.h"
#include "scan/result_items.h"
#include "scan/scan_driver.h"
#include "scan/scan_function.h"
#include "window/colors.h"
#include "window/embedded_page.h"
#include "window/icons.h"
#include "window/keys.h"
#include "window/layout.h"
#include "window/mouse.h"
#include "window/options_page.h"
#include "window/wiring_help.h"
#include "window/wiring_options.h"

namespace tavix {
namespace {

void picMini_MouseUp(int button) {
  if (button == kLeftButton) frmPubMain.Minimize();
}

void picClose_MouseUp(int button) {
  if (button == kLeftButton) frmPubMain.Unload();
}

void WireMouseMoves() {
  MainForm& form = frmPubMain;
  for (PictureBox* icon : {&form.picMini, &form.picClose, &form.picHelp, &form.picCommend, &form.picPrivacy,
                           &form.picSystem, &form.picRegistry, &form.picAdv, &form.picOpt, &form.picOne}) {
    icon->MouseMove = [icon](int) { mdlPubSelf::LightIcon(*icon); };
  }
  form.lblBorder.MouseMove = form.picTitle.MouseMove = mdlPubSelf::lblBorder_MouseMove;
  for (Event<int>* moved :
       {&form.lblFrame.MouseMove, &form.lst.MouseMove, &form.trvPrivacy.MouseMove, &form.trvRes.MouseMove}) {
    *moved = mdlPubSelf::MoveWindowByMouse;
  }
}

// The menu over the results has the commands of the toolbar, in the same order.
void WireToolbar() {
  int index = 0;
  for (MenuItem* entry : frmPubType.menr.Items) {
    const auto run = [index] { mdlPubSelf::sbtToolbar_Click(index); };
    frmPubMain.sbtToolbar[static_cast<size_t>(index)].Click = run;
    entry->Click = run;
    ++index;
  }
}

}  // namespace

void WireMainForm() {
  MainForm& form = frmPubMain;
  form.KeyDown = mdlPubSelf::Form_KeyDown;
  form.picMini.MouseUp = picMini_MouseUp;
  form.picClose.MouseUp = picClose_MouseUp;
  form.picOpt.MouseUp = mdlPubSelf::picOpt_MouseUp;
  WireMouseMoves();
  form.webGIF.DocumentComplete = mdlPubSelf::webGIF_DocumentComplete;
  form.mhtm.oncontextmenu = mdlPubSelf::mhtm_oncontextmenu;
  form.picPrivacy.MouseUp = mdlPubSelf::picPrivacy_MouseUp;
  form.picSystem.MouseUp = mdlPubSelf::picSystem_MouseUp;
  form.picRegistry.MouseUp = mdlPubSelf::picRegistry_MouseUp;
  form.picAdv.MouseUp = mdlPubSelf::picAdv_MouseUp;
  form.picOne.MouseUp = mdlPubSelf::picOne_MouseUp;
  form.lst.Click = mdlPubSelf::lst_Click;
  form.lst.ItemCheck = mdlPubSelf::lst_ItemCheck;
  form.lblOpt.Click = mdlPubSelf::lblOpt_Click;
  form.trvPrivacy.NodeCheck = mdlPubSelf::trvPrivacy_NodeCheck;
  form.trvPrivacy.NodeClick = mdlPubSelf::trvPrivacy_NodeClick;
  form.trvRes.NodeCheck = mdlPubSelf::trvRes_NodeCheck;
  form.trvRes.NodeClick = mdlPubSelf::trvRes_NodeClick;
  form.cbxAll.Click = mdlPubSelf::cbxAll_Click;
  form.lsvResult.ColumnClick = mdlPubSelf::lsvResult_ColumnClick;
  form.lsvResult.MouseUp = mdlPubSelf::lsvResult_MouseUp;
  WireToolbar();
  WireOptionsForm();
  form.timLoader.Tick = mdlPubSelf::timLoader_Timer;
  form.sbtScan.Click = mdlPubSelf::sbtScan_Click;
  form.sbtCancel.Click = mdlPubSelf::sbtCancel_Click;
  form.sbtClean.Click = mdlPubSelf::sbtClean_Click;
  form.sbtRepair.Click = mdlPubSelf::sbtRepair_Click;
  WireHelp();

  mdlPubSelf::frameSteps.BuildPrivacyTree = mdlPubSelf::BuildPrivacyTree;
  mdlPubSelf::frameSteps.LoadJunkDefinitions = mdlPubSelf::LoadJunkDefinitions;
  mdlPubSelf::advancedScan = mdlPubSelf::RunAdvancedScan;
  mdlPubSelf::frameSteps.LayOutWindow = [] {
    ChooseInterfaceSize();
    LayOutMainForm();
    mdlPubSelf::LoadIconPictures();
  };
  mdlPubSelf::frameSteps.SendEmbeddedPage = mdlPubSelf::SendEmbeddedPage;
  mdlPubSelf::frameSteps.ColorControls = mdlPubSelf::ColorControls;
}

}  // namespace tavix
