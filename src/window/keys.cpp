#include "window/keys.h"

#include <algorithm>
#include <iterator>

#include "forms/main_form.h"
#include "forms/type_form.h"

namespace tavix::mdlPubSelf {
namespace {

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

}  // namespace

void Form_KeyDown(int keyCode, int shift) {
  const auto* const found =
      std::find_if(std::begin(kCommands), std::end(kCommands),
                   [&](const KeyCommand& c) { return c.keyCode == keyCode && c.shift == shift; });
  if (found != std::end(kCommands)) found->run();
}

}  // namespace tavix::mdlPubSelf
