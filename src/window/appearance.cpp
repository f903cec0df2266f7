#include "window/appearance.h"

#include "forms/main_form.h"
#include "frame/tree_colors.h"
#include "platform/application.h"

namespace tavix::mdlPubSelf {
namespace {

struct Icon {
  PictureBox MainForm::*picture;
  TextView atRest, lit;
};

// In the order in which they are unlit.
constexpr Icon kIcons[] = {
    {&MainForm::picMini, u"MINI_STTC", u"MINI_ACTV"},
    {&MainForm::picClose, u"CLOSE_STTC", u"CLOSE_ACTV"},
    {&MainForm::picPrivacy, u"PRIVACY_STTC", u"PRIVACY_ACTV"},
    {&MainForm::picSystem, u"SYS_STTC", u"SYS_ACTV"},
    {&MainForm::picRegistry, u"REG_STTC", u"REG_ACTV"},
    {&MainForm::picAdv, u"ADV_STTC", u"ADV_ACTV"},
    {&MainForm::picOpt, u"OPT_STTC", u"OPT_ACTV"},
    {&MainForm::picOne, u"ONE_STTC", u"ONE_ACTV"},
    {&MainForm::picHelp, u"HELP_STTC", u"HELP_ACTV"},
    {&MainForm::picCommend, u"COMMEND_STTC", u"COMMEND_ACTV"},
};

void LoadRestPictures() {
  for (const Icon& icon : kIcons) (frmPubMain.*icon.picture).Picture = Text(icon.atRest);
}

}  // namespace

void LoadIconPictures() {
  frmPubMain.picTitle.Picture = frmPubMain.BigInterface ? Text(u"TITLE_BIG") : Text(u"TITLE_SM");
  LoadRestPictures();
}

void LightIcon(PictureBox& icon) {
  for (const Icon& known : kIcons) {
    if (&(frmPubMain.*known.picture) == &icon && icon.BorderStyle != 1) icon.Picture = Text(known.lit);
  }
  frmPubMain.IconsLit = true;
}

void UnlightIcons() {
  if (!frmPubMain.IconsLit) return;
  LoadRestPictures();
  frmPubMain.IconsLit = false;
}

void ColorControls() {
  for (TreeView* tree : {&frmPubMain.trvPrivacy, &frmPubMain.trvRes}) {
    ColorTreeLike(*tree, frmPubMain.lsvResult);
  }
}

void SendEmbeddedPage() {
  frmPubMain.webGIF.Navigate(Concat(platform::applicationFolder, u"\\res\\scan.htm"));
}

void webGIF_DocumentComplete() { frmPubMain.mhtm.Scroll = Text(u"no"); }

void mhtm_oncontextmenu(bool& shown) { shown = false; }

}  // namespace tavix::mdlPubSelf
