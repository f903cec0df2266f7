#include "window/wiring.h"

#include "catalogue/privacy_tree.h"
#include "catalogue/selection.h"
#include "clean/clean_driver.h"
#include "forms/main_form.h"
#include "frame/start_up.h"
#include "platform/application.h"
#include "scan/result_items.h"
#include "scan/scan_driver.h"
#include "window/keys.h"
#include "window/layout.h"

namespace tavix {
namespace {

void picMini_MouseUp(int button) {
  if (button == kLeftButton) frmPubMain.Minimize();
}

void picClose_MouseUp(int button) {
  if (button == kLeftButton) frmPubMain.Unload();
}

void SendEmbeddedPage() {
  frmPubMain.webGIF.Navigate(Concat(platform::applicationFolder, u"\\res\\scan.htm"));
}

}  // namespace

void WireMainForm() {
  MainForm& form = frmPubMain;
  form.KeyDown = mdlPubSelf::Form_KeyDown;
  form.picMini.MouseUp = picMini_MouseUp;
  form.picClose.MouseUp = picClose_MouseUp;
  form.trvPrivacy.NodeCheck = mdlPubSelf::trvPrivacy_NodeCheck;
  form.trvPrivacy.NodeClick = mdlPubSelf::trvPrivacy_NodeClick;
  form.cbxAll.Click = mdlPubSelf::cbxAll_Click;
  form.lsvResult.ColumnClick = mdlPubSelf::lsvResult_ColumnClick;
  form.sbtScan.Click = mdlPubSelf::sbtScan_Click;
  form.sbtCancel.Click = mdlPubSelf::sbtCancel_Click;
  form.sbtClean.Click = mdlPubSelf::sbtClean_Click;
  form.sbtRepair.Click = mdlPubSelf::sbtRepair_Click;

  mdlPubSelf::frameSteps.BuildPrivacyTree = mdlPubSelf::BuildPrivacyTree;
  mdlPubSelf::frameSteps.LayOutWindow = [] {
    ChooseInterfaceSize();
    LayOutMainForm();
  };
  mdlPubSelf::frameSteps.SendEmbeddedPage = SendEmbeddedPage;
}

}  // namespace tavix
