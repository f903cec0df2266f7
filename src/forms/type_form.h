#pragma once

#include <array>

#include "controls/form.h"
#include "controls/menu.h"
#include "controls/text_box.h"

namespace tavix {

// The editor of a junk file type. Its title says whether a type is added or edited, so the program sets it
// and no catalogue does. The form also holds the pop-up menus of the whole program.
class TypeForm : public Form {
 public:
  TypeForm();

  std::array<Label, 2> lbl;    // what the boxes are for
  std::array<TextBox, 2> txt;  // description, pattern
  std::array<Button, 3> sbt;   // save and add another, save and close, close

  // Over the results: the commands of the toolbar, in its order.
  MenuItem menrx, menro, menrp, menri;
  Menu menr{&menrx, &menro, &menrp, &menri};

  // Help.
  MenuItem menhh, menhsa, menhf, menhw, menhc, menhsb, menhl, menhsc, menha;
  Menu menh{&menhh, &menhsa, &menhf, &menhw, &menhc, &menhsb, &menhl, &menhsc, &menha};
};

inline TypeForm frmPubType;

}  // namespace tavix
