#include "window/wiring_help.h"

#include "forms/about_form.h"
#include "forms/main_form.h"
#include "forms/type_form.h"
#include "frame/start_up.h"
#include "window/about.h"
#include "window/help.h"
#include "window/update.h"

namespace tavix {

void WireHelp() {
  MainForm& form = frmPubMain;
  form.picHelp.Click = mdlPubSelf::picHelp_Click;
  form.picCommend.Click = mdlPubSelf::picCommend_Click;
  form.lblProdLogo.MouseUp = mdlPubSelf::lblProdLogo_MouseUp;
  form.lblCompLogo.MouseUp = mdlPubSelf::lblCompLogo_MouseUp;

  TypeForm& menus = frmPubType;
  menus.menhh.Click = mdlPubSelf::menhh_Click;
  menus.menhf.Click = mdlPubSelf::menhf_Click;
  menus.menhw.Click = mdlPubSelf::menhw_Click;
  menus.menhc.Click = mdlPubSelf::menhc_Click;
  menus.menhl.Click = mdlPubSelf::menhl_Click;
  menus.menha.Click = mdlPubSelf::menha_Click;

  AboutForm& about = frmPubAbout;
  about.Load = mdlPubSelf::frmPubAbout_Load;
  about.Resize = mdlPubSelf::frmPubAbout_Resize;
  about.sbtMailer.Click = mdlPubSelf::menhc_Click;
  about.sbtWeb.Click = mdlPubSelf::menhw_Click;
  about.sbtClose.Click = mdlPubSelf::sbtAboutClose_Click;

  mdlPubSelf::frameSteps.CheckForUpdate = mdlPubSelf::CheckForUpdate;
  mdlPubSelf::frameSteps.UnloadAbout = [] { frmPubAbout.Unload(); };
}

}  // namespace tavix
