#pragma once

// lstDF, the list of the file types that are compared where only common ones are.
namespace tavix::mdlPubSelf {

// Ctrl+A selects all rows.
void lstDF_KeyUp(int keyCode, int shift);
// The buttons by their index: adds a type, asked for until it is a good one or none; deletes the selected
// ones. A type that stands in the saved setting, be it as part of another one, isn't added.
void sbtDF_Click(int index);

}  // namespace tavix::mdlPubSelf
