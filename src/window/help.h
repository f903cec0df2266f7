#pragma once

// The help menu and the links: help file, web sites, mails, about window. If a program can't be started,
// nothing happens.
namespace tavix::mdlPubSelf {

// Pops up the help menu.
void picHelp_Click();
// Opens the help file, unless its viewer is open.
void menhh_Click();
// Open the frequently asked questions, and the product's site.
void menhf_Click();
void menhw_Click();
// Writes a mail to the support.
void menhc_Click();
// Shows the about window.
void menha_Click();

// Writes a mail that recommends the product to a friend.
void picCommend_Click();
// The left button released on a name in the title strip: opens the product's site, or its maker's.
void lblProdLogo_MouseUp(int button);
void lblCompLogo_MouseUp(int button);

// Gives the about window its texts.
void frmPubAbout_Load();
void sbtAboutClose_Click();

}  // namespace tavix::mdlPubSelf
