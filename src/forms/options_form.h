#pragma once

#include <array>
#include <cstdint>
#include <vector>

#include "controls/form.h"
#include "controls/frame.h"
#include "controls/list_box.h"
#include "controls/option_button.h"
#include "controls/text_box.h"
#include "controls/tree_view.h"

namespace tavix {

// The options window: a tree of pages, and a frame for each of them. The titles and remarks of the pages and
// the texts of the trees are put in by the program.
struct OptionsForm : Form {
  OptionsForm();

  TextView Name() const override { return u"frmPubOptions"; }
  std::vector<NamedText> Texts() override;

  // The page to show when the form loads, counted from 1. Set it before showing the form.
  int16_t piPage = 1;

  TreeView trv;
  PictureBox picBig;
  Label lblOpt, lblRemark;
  Button sbtSave, sbtRecommend, sbtClose;

  // One-click Clean/Repair.
  Frame fraOC;
  TreeView trvOC;

  // Junk Files.
  Frame fraJF;
  ListView lsvJF;
  std::array<Button, 4> sbtJF;  // add, edit, delete, tick all

  // Duplicate Files.
  Frame fraDF;
  std::array<Frame, 2> fraDFGroup;  // rule, scope
  std::array<CheckBox, 4> cbxDF;    // name, size, time, least size
  TextBox txtDFSS;
  Label lblDFSS;  // the unit behind the box
  std::array<OptionButton, 2> optDF;
  ListBox lstDF;
  std::array<Button, 2> sbtDF;  // add, delete

  // Cleaning Method.
  Frame fraCM;
  std::array<OptionButton, 3> optCM;  // delete, recycle bin, move
  TextBox txtDF;
  Button sbtCM;

  // Other Options.
  Frame fraOO;
  std::array<Frame, 3> fraOOGroup;    // size, days, folders
  std::array<OptionButton, 3> optOO;  // automatic, big, small
  std::array<Label, 4> lblOOSize;     // one for each size, and the note
  std::array<Label, 2> lblOODays;     // what the boxes are for
  std::array<TextBox, 2> txtOO;
  ListView lsvOO;
  std::array<Button, 2> sbtOO;  // add, delete
};

inline OptionsForm frmPubOptions;

}  // namespace tavix
