#pragma once

// The list of junk types in the options window and the window that asks for a type. Built-in types can be
// ticked and nothing else. What is added, changed and deleted here goes to the user's file at once.
namespace tavix::mdlPubSelf {

// The buttons of the list by their index: add a type, edit the one in focus, delete the selected ones after
// a question, tick all.
void sbtJF_Click(int index);
void lsvJF_ColumnClick(int header);
void lsvJF_DblClick();
void lsvJF_ItemClick();
void lsvJF_KeyDown(int keyCode, int shift);

// frmPubType: texts and menus from the catalogues, empty boxes.
void frmPubType_Load();
// Enter anywhere is the button that saves and closes.
void frmPubType_KeyDown(int keyCode, int shift);
void txt_GotFocus(int index);

// Whether the content of frmPubType may be saved. If not, a message has told why, and the box in question has
// the focus.
bool ValidateJunkType();
// The buttons of frmPubType by their index: save and go on with an empty form, save and close, close. A type
// that differs from the edited one in letter case alone isn't stored.
void sbt_Click(int index);

}  // namespace tavix::mdlPubSelf
