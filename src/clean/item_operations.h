#pragma once

namespace tavix::mdlPubSelf {

// A command of the toolbar and of the menu over the results, by its position: 0 opens the selected files and
// folders, 1 opens what they lie in, or the first selected registry row in the registry editor, 2 shows
// their properties, 3 flips the ticks of all rows. One command opens ten rows at most; rows that stand for
// something else are passed over.
void sbtToolbar_Click(int index);

// A release of a mouse button over the results: the right one shows the menu, on an empty list too.
void lsvResult_MouseUp(int button);

}  // namespace tavix::mdlPubSelf
