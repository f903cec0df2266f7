#pragma once

// lstDF lists the file types to compare if only common ones are compared.
namespace tavix::mdlPubSelf {

// Ctrl+A selects all rows.
void lstDF_KeyUp(int keyCode, int shift);
// Buttons: 0 asks for a type until it is valid or none is given, and adds it; 1 deletes the selected types. A
// type that occurs in the saved setting, even as part of another type, isn't added.
void sbtDF_Click(int index);

}  // namespace tavix::mdlPubSelf
