#pragma once

// What the controls of the option pages do while the window is open, but for number boxes and lists of types.
// Nothing here writes a setting.
namespace tavix::mdlPubSelf {

// Duplicate Files: the least size can be entered where it is asked for, ...
void cbxDF_Click(int index);
// ... and the list of common types is in use where only they are compared.
void optDF_Click(int index);

// Cleaning Method: the backup folder can be entered where files are moved there.
void optCM_Click(int index);
void sbtCM_Click();
void txtDF_GotFocus();
// A folder that doesn't exist brings page and focus back, unless the box is switched off.
void txtDF_LostFocus();

// Other Options: adds a folder, chosen and described by the user, or deletes the selected ones.
void sbtOO_Click(int index);
void lsvOO_ColumnClick(int header);

}  // namespace tavix::mdlPubSelf
