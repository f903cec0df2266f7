#include "window/input.h"

#include <algorithm>
#include <iterator>

#include "catalogue/pages.h"
#include "forms/main_form.h"
#include "forms/options_form.h"
#include "forms/type_form.h"
#include "frame/support/pub_system.h"
#include "platform/desktop.h"
#include "window/appearance.h"

namespace tavix::mdlPubSelf {
namespace {

// Sent as if the left button were pressed on the title bar (WM_NCLBUTTONDOWN, HTCAPTION).
constexpr uint32_t kLeftPressMessage = 161;
constexpr intptr_t kOnTitleBar = 2;

constexpr int kEscape = 0x1B;
constexpr int kF1 = 0x70;
constexpr int kF3 = 0x72;
constexpr int kF4 = 0x73;
constexpr int kF5 = 0x74;

template <PictureBox MainForm::*picture>
void Release() {
  (frmPubMain.*picture).MouseUp(kLeftButton);
}

template <int index>
void PressTool() {
  frmPubMain.sbtToolbar[index].Click();
}

struct KeyCommand {
  int keyCode;
  int shift;
  void (*run)();
};

constexpr KeyCommand kCommands[] = {
    {kF1, 0, [] { frmPubType.menhh.Click(); }},
    {kF3, 0, [] { frmPubMain.sbtScan.Click(); }},
    {kF5, 0, [] { frmPubMain.sbtClean.Click(); }},
    {kEscape, 0,
     [] {
       if (frmPubMain.sbtCancel.Visible) frmPubMain.sbtCancel.Click();
     }},
    {kF4, kAlt, [] { frmPubMain.Unload(); }},
    {'P', 0, Release<&MainForm::picPrivacy>},
    {'S', 0, Release<&MainForm::picSystem>},
    {'R', 0, Release<&MainForm::picRegistry>},
    {'A', 0, Release<&MainForm::picAdv>},
    {'O', 0, Release<&MainForm::picOpt>},
    {'1', 0, Release<&MainForm::picOne>},
    {'X', kCtrl, PressTool<0>},
    {'O', kCtrl, PressTool<1>},
    {'P', kCtrl, PressTool<2>},
    {'I', kCtrl, PressTool<3>},
};

// Null if there is none.
const KeyCommand* CommandOf(int keyCode, int shift) {
  const auto* const found =
      std::find_if(std::begin(kCommands), std::end(kCommands),
                   [&](const KeyCommand& c) { return c.keyCode == keyCode && c.shift == shift; });
  return found != std::end(kCommands) ? found : nullptr;
}

}  // namespace

void Form_KeyDown(int keyCode, int shift) {
  if (const KeyCommand* const command = CommandOf(keyCode, shift)) command->run();
}

bool IsCommandKey(int keyCode, int shift) { return CommandOf(keyCode, shift) != nullptr; }

void MoveWindowByMouse(int buttons) {
  if ((buttons & kLeftButton) == 0) return;
  platform::desktop->ReleaseCapture();
  pubSystem.SendWindowMessage(frmPubMain.hWnd, kLeftPressMessage, kOnTitleBar, 0);
}

void lblBorder_MouseMove(int buttons) {
  UnlightIcons();
  MoveWindowByMouse(buttons);
}

void picMini_MouseUp(int button) {
  if (button == kLeftButton) frmPubMain.Minimize();
}

void picClose_MouseUp(int button) {
  if (button == kLeftButton) frmPubMain.Unload();
}

void picOpt_MouseUp(int button) {
  MainForm& form = frmPubMain;
  if (button != kLeftButton || form.picOpt.BorderStyle == 1) return;
  for (PictureBox* page : form.PagePictures()) page->BorderStyle = page == &form.picOpt ? 1 : 0;
  form.picOpt.Picture = Text(u"OPT_STTC");
  frmPubOptions.piPage = 1;
  frmPubOptions.ShowModal();
  form.picOpt.BorderStyle = 0;
  MarkLastPage();
}

}  // namespace tavix::mdlPubSelf
