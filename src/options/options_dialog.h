#pragma once

// Opening, saving and closing the options window.
namespace tavix::mdlPubSelf {

// Builds the window: texts, trees and values, at the page `piPage`.
void frmPubOptions_Load();
// Ticks the functions of a one-click run. The controls are in their places.
void frmPubOptions_Resize();
// Fills all controls but trvOC from the settings and junk types in memory.
void LoadOptionValues();

// Writes all that the window shows into the files and loads it. If only common types are to be compared and
// there are none, shows a message and writes nothing.
void sbtSave_Click();
// Restores the default settings and the built-in junk types, in the files and in memory.
void sbtRecommend_Click();
// Closes the window without saving.
void sbtClose_Click();

}  // namespace tavix::mdlPubSelf
