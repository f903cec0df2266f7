#pragma once

#include <array>
#include <cstdint>

#include "controls/check_list.h"
#include "controls/form.h"
#include "controls/list_view.h"
#include "controls/tree_view.h"
#include "text/text.h"

namespace tavix {

// What cleaning a row does, as the status line tells it.
struct RowSentences {
  Text DeletesFile, RecyclesFile, SavesFile;        // {path}, {backup}
  Text DeletesFolder, RecyclesFolder, SavesFolder;  // {path}, {backup}
  Text HasNoMethod;                                 // {path}
  Text KeepsOddName;                                // {path}
  Text DeletesAtRestart, NamesFileTwice;            // {path}
  Text DeletesKey, DeletesDefault;                  // {key}
  Text DeletesValue;                                // {value}, {key}
  Text RunsCommand;                                 // {command}
  Text EmptiesLog;                                  // {log}
  Text EmptiesBins;
  Text RowOnly;
};

// Why a command of the toolbar has not worked, as the status line tells it.
struct ToolbarSentences {
  Text NoneHighlighted;
  std::array<Text, 3> NoneFit;  // no highlighted row is of a kind for execute, open, properties
  Text SomeLeftOut;
};

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
  Text sayCurrentPage;  // said after the name of the current page

  // Functions.
  CheckList lst;
  TreeView trvPrivacy, trvRes;
  Label lblOpt, lblOptPrompt;

  // Results.
  CheckBox cbxAll;
  ListView lsvResult;
  std::array<Button, 4> sbtToolbar;  // execute, open, properties, invert
  RowSentences sayRow;
  ToolbarSentences sayToolbar;

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

  // Whether a scan or a clean runs and owns the status line.
  bool IsJobRunning() const { return sbtCancel.Visible || CleanBusy; }

  bool BigInterface = false;
  bool IconsLit = false;
  int16_t LastPage = 0;    // 0 Privacy, 1 System, 2 Registry, 3 Advanced
  bool ListGuard = false;  // the program is changing lst: ItemCheck does nothing
  int64_t JobStart = 0;    // when the scan or clean began, as the platform's clock tells times
  bool CleanBusy = false;

 private:
  void SayRowSentences();
};

inline MainForm frmPubMain;

}  // namespace tavix
