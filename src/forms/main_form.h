#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "controls/check_list.h"
#include "controls/control.h"
#include "controls/form.h"
#include "controls/list_view.h"
#include "controls/tree_view.h"
#include "platform/clock.h"

namespace tavix {

// The main window as the program sees it: its controls, with the captions they are built with, and its
// fields. Coordinates are filled in at start.
struct MainForm : Form {
  MainForm();

  TextView Name() const override { return u"frmPubMain"; }
  std::vector<NamedText> Texts() override;

  // Title strip.
  PictureBox picTitle, picMini, picClose, picHelp, picCommend;
  Label lblVer, lblCompLogo, lblProdLogo;

  // Pages, top to bottom. The page in use has BorderStyle 1.
  PictureBox picPrivacy, picSystem, picRegistry, picAdv, picOpt, picOne;

  // Functions.
  CheckList lst;
  TreeView trvPrivacy, trvRes;
  Label lblOpt, lblOptPrompt;

  // Results.
  CheckBox cbxAll;
  ListView lsvResult;
  std::array<Button, 4> sbtToolbar;

  // Job.
  Button sbtScan, sbtCancel, sbtClean, sbtRepair;
  WebBrowser webGIF;
  WebDocument mhtm;
  Label lblProgS, lblProgMO, lblProgMI, lblTimeP, lblTime, lblSum;
  Label lblFrame, lblBorder;
  FileListBox flb;
  InternetTransfer net;
  Timer timLoader;

  Event<> Refresh;   // paint what has changed at once
  Event<> Minimize;  // send the window to the task bar

  bool BigInterface = false;
  bool IconsLit = false;
  int16_t LastPage = 0;  // 0 Privacy, 1 System, 2 Registry, 3 Advanced
  bool ListGuard = false;
  platform::DateTime JobStart = 0;
  bool CleanBusy = false;

  // The page pictures in their order from top to bottom.
  std::array<PictureBox*, 6> PagePictures();
};

inline MainForm frmPubMain;

}  // namespace tavix
