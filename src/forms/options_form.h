#pragma once

#include <array>
#include <cstdint>

#include "controls/form.h"
#include "controls/frame.h"
#include "controls/list_box.h"
#include "controls/list_view.h"
#include "controls/option_button.h"
#include "controls/text_box.h"
#include "controls/tree_view.h"

namespace tavix {

// The options window: a tree of pages, and a frame for each page. The program fills in the title and remark
// of the current page and the texts of the trees. The letters of a name are those of its page.
class OptionsForm : public Form {
 public:
  OptionsForm();

  int16_t piPage = 1;  // the page that Load shows, from 1

  TreeView trv;
  PictureBox picBig;
  Label lblOpt, lblRemark;
  Button sbtSave, sbtRecommend, sbtClose;

  // OC: One-click Clean/Repair.
  Frame fraOC;
  TreeView trvOC;

  // JF: Junk Files.
  Frame fraJF;
  ListView lsvJF;
  std::array<Button, 4> sbtJF;  // add, edit, delete, tick all

  // DF: Duplicate Files.
  Frame fraDF;
  std::array<Frame, 2> fraDFGroup;  // rule, scope
  std::array<CheckBox, 4> cbxDF;    // name, size, time, least size
  TextBox txtDFSS;
  Label lblDFSS;  // the unit after txtDFSS
  std::array<OptionButton, 2> optDF;
  ListBox lstDF;
  std::array<Button, 2> sbtDF;  // add, delete

  // CM: Cleaning Method.
  Frame fraCM;
  std::array<OptionButton, 3> optCM;  // delete, recycle bin, move
  TextBox txtDF;                      // the folder to move to
  Button sbtCM;

  // OO: Other Options.
  Frame fraOO;
  std::array<Frame, 3> fraOOGroup;    // size, days, folders
  std::array<OptionButton, 3> optOO;  // automatic, big, small
  std::array<Label, 4> lblOOSize;     // one for each of optOO, and a note
  std::array<Label, 2> lblOODays;     // what txtOO are for
  std::array<TextBox, 2> txtOO;
  ListView lsvOO;
  std::array<Button, 2> sbtOO;  // add, delete
};

inline OptionsForm frmPubOptions;

}  // namespace tavix
