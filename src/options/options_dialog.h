#pragma once

// The options window and what it does with the settings as a whole.
namespace tavix::mdlPubSelf {

// The window as it is built, with its texts, trees and values, at page `piPage`.
void frmPubOptions_Load();
// The controls are in their places; the functions of a one-click run get their ticks.
void frmPubOptions_Resize();
// Fills all controls but trvOC from the settings and junk types in memory.
void LoadOptionValues();

// Writes all that the window shows and loads it. Refused, with a message and nothing written, where only
// common types are to be compared and there is none.
void sbtSave_Click();
// Puts settings and built-in junk types back to the recommended ones, in the files too.
void sbtRecommend_Click();
// Closes the window and saves nothing.
void sbtClose_Click();

}  // namespace tavix::mdlPubSelf
