#include "clean/one_click.h"

#include "catalogue/pages.h"
#include "forms/main_form.h"
#include "frame/messages.h"
#include "platform/dialogs.h"

namespace tavix::mdlPubSelf {
namespace {

// Only Yes cleans.
bool UserAgrees() {
  constexpr int kStyle = platform::kYesNo | platform::kInformation;
  return platform::dialogs->MsgBox(GetMessageText(u"ONE_CLICK"), kStyle) == platform::kYes;
}

void ScanAndClean() {
  MainForm& form = frmPubMain;
  form.Enabled = false;
  // It can't be pressed in a disabled window, and it looks so.
  form.sbtCancel.Enabled = false;
  form.sbtScan.Click();
  // The user may have closed the program during the scan.
  if (form.Loaded) form.sbtClean.Click();
  form.sbtCancel.Enabled = true;
  form.Enabled = true;
}

}  // namespace

void RunOneClick() {
  MainForm& form = frmPubMain;
  if (form.picOne.BorderStyle == 1) return;
  for (PictureBox* picture : form.PagePictures()) picture->BorderStyle = picture == &form.picOne ? 1 : 0;
  form.picOne.Picture = u"ONE_STTC";
  // The marks are seen while the question stands.
  form.Refresh();
  if (!form.sbtCancel.Visible && !form.CleanBusy && UserAgrees()) ScanAndClean();
  form.picOne.BorderStyle = 0;
}

void picOne_MouseUp(int button) {
  if (button != kLeftButton) return;
  RunOneClick();
  MarkLastPage();
}

}  // namespace tavix::mdlPubSelf
