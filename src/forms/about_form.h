#pragma once

#include "controls/form.h"

namespace tavix {

// The window that says which program and version this is.
class AboutForm : public Form {
 public:
  AboutForm();

  PictureBox picLogo;
  Label lblProduct, lblCopyright;
  Button sbtMailer, sbtWeb, sbtClose;
};

inline AboutForm frmPubAbout;

}  // namespace tavix
