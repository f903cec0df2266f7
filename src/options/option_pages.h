#pragma once

// What the controls of the option pages do while the window is open. Number boxes and the list of types have
// files of their own. Nothing here writes a setting.
namespace tavix::mdlPubSelf {

// Duplicate Files: box 3 switches the box for the least size on or off.
void cbxDF_Click(int index);
// Button 1 switches the list of common types on, button 0 off.
void optDF_Click(int index);

// Cleaning Method: button 2 switches the box for the backup folder on, the others off.
void optCM_Click(int index);
void sbtCM_Click();
void txtDF_GotFocus();
// If the folder is known to be missing and the box is on, shows a message and brings page and focus back.
void txtDF_LostFocus();

// Other Options: button 0 adds a folder that the user chooses and describes, button 1 deletes the selected
// folders.
void sbtOO_Click(int index);
void lsvOO_ColumnClick(int header);

}  // namespace tavix::mdlPubSelf
