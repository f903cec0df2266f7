#pragma once

namespace tavix::mdlPubSelf {

// Shows the about window, and what happens in it: it takes its texts when it is loaded, and places its
// controls when it has got its size.
void menha_Click();
void frmPubAbout_Load();
void frmPubAbout_Resize();
void sbtAboutClose_Click();

}  // namespace tavix::mdlPubSelf
