#pragma once

// The list of junk types in the options window, and the window that edits one type. A built-in type can only
// be ticked. Each type that is added, changed or deleted here is written to the user's file at once.
namespace tavix::mdlPubSelf {

// The buttons of the list by index: 0 adds a type, 1 edits the focused one, 2 asks and deletes the selected
// ones, 3 ticks all.
void sbtJF_Click(int index);
void lsvJF_ColumnClick(int header);
void lsvJF_DblClick();
void lsvJF_ItemClick();
void lsvJF_KeyDown(int keyCode, int shift);

// Loads the texts and menus of frmPubType from the catalogues and empties its boxes.
void frmPubType_Load();
// Enter presses the button that saves and closes.
void frmPubType_KeyDown(int keyCode, int shift);
void txt_GotFocus(int index);

// Whether the input of frmPubType may be saved. If not, a message has said why, and the box at fault has the
// focus.
bool ValidateJunkType();
// The buttons of frmPubType by index: 0 saves and empties the form for the next type, 1 saves and closes, 2
// closes. If the input differs from the edited type only in letter case, nothing is stored.
void sbt_Click(int index);

}  // namespace tavix::mdlPubSelf
