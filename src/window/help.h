#pragma once

// The help file, the web sites and the mails.
namespace tavix::mdlPubSelf {

// Opens the help file, unless its viewer is open already.
void menhh_Click();
// The frequently asked questions, the site of the product, a mail to the support, that of the maker.
void menhf_Click();
void menhw_Click();
void menhc_Click();
void OpenMakerSite();

// Pops up the help menu.
void picHelp_Click();
// A mail that recommends the product to a friend.
void picCommend_Click();
// The names in the title strip lead to the sites, by the left mouse button.
void lblProdLogo_MouseUp(int button);
void lblCompLogo_MouseUp(int button);

}  // namespace tavix::mdlPubSelf
