#pragma once

#include <vector>

#include "controls/form.h"

namespace tavix {

struct AboutForm : Form {
  AboutForm();

  TextView Name() const override { return u"frmPubAbout"; }
  std::vector<NamedText> Texts() override;

  PictureBox picLogo;
  Label lblProduct, lblCopyright;
  Button sbtMailer, sbtWeb, sbtClose;
};

inline AboutForm frmPubAbout;

}  // namespace tavix
