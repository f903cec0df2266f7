#pragma once

#include <array>
#include <vector>

#include "controls/form.h"
#include "controls/menu.h"
#include "controls/text_box.h"

namespace tavix {

// The window that asks for a junk file type. Its title is its mode, so no catalogue replaces it. It carries
// the pop-up menus of the whole program, too.
struct TypeForm : Form {
  TypeForm();

  TextView Name() const override { return u"frmPubType"; }
  std::vector<NamedText> Texts() override;
  std::vector<NamedText> Menus() override;

  std::array<Label, 2> lbl;    // what the boxes are for
  std::array<TextBox, 2> txt;  // description, pattern
  std::array<Button, 3> sbt;   // save and add another, save and close, close

  // Over the results: the commands of the toolbar in its order.
  MenuItem menrx, menro, menrp, menri;
  Menu menr{&menrx, &menro, &menrp, &menri};

  // Help: topics; questions, web site, support; update; about.
  MenuItem menhh, menhsa, menhf, menhw, menhc, menhsb, menhl, menhsc, menha;
  Menu menh{&menhh, &menhsa, &menhf, &menhw, &menhc, &menhsb, &menhl, &menhsc, &menha};
};

inline TypeForm frmPubType;

}  // namespace tavix
