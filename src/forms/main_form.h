#pragma once

#include <array>
#include <cstdint>

#include "controls/check_list.h"
#include "controls/form.h"
#include "controls/list_view.h"
#include "controls/tree_view.h"

namespace tavix {

// The main window. Its layout gives the controls their places at start.
class MainForm : public Form {
 public:
  MainForm();

  // Title strip.
  PictureBox picTitle, picMini, picClose, picHelp, picCommend;
  Label lblVer, lblCompLogo, lblProdLogo;

  // Pages, top to bottom. The current page has BorderStyle 1.
  PictureBox picPrivacy, picSystem, picRegistry, picAdv, picOpt, picOne;
  std::array<PictureBox*, 6> PagePictures();

  // Functions.
  CheckList lst;
  TreeView trvPrivacy, trvRes;
  Label lblOpt, lblOptPrompt;

  // Results.
  CheckBox cbxAll;
  ListView lsvResult;
  std::array<Button, 4> sbtToolbar;  // execute, open, properties, invert

  // Job.
  Button sbtScan, sbtCancel, sbtClean, sbtRepair;
  WebBrowser webGIF;
  WebDocument mhtm;
  Label lblProgS, lblProgMO, lblProgMI, lblTimeP, lblTime, lblSum;
  Label lblFrame, lblBorder;
  FileListBox flb;
  InternetTransfer net;
  Timer timLoader;

  Event<> Refresh;      // command: paints what has changed at once
  Event<> KeepPainted;  // command of a job that serves no input: paints what has changed every now and then
  Event<> Minimize;     // command: sends the window to the task bar

  bool BigInterface = false;
  bool IconsLit = false;
  int16_t LastPage = 0;    // 0 Privacy, 1 System, 2 Registry, 3 Advanced
  bool ListGuard = false;  // the program is changing lst: ItemCheck does nothing
  int64_t JobStart = 0;    // when the scan or clean began, as the platform's clock tells times
  bool CleanBusy = false;
};

inline MainForm frmPubMain;

}  // namespace tavix
