#pragma once

namespace tavix::mdlPubSelf {

// A command of the toolbar or of the menu over the results: 0 opens the selected files and folders; 1 opens
// the folders they lie in, or the key of the first selected registry row in the registry editor; 2 shows
// their properties; 3 inverts the ticks of all rows. One command serves at most ten rows. Other kinds of rows
// are skipped; the status line says so, and why a command has found nothing to work on.
void sbtToolbar_Click(int index);

// A mouse button was released over the results. The right one shows the menu, also over an empty list.
void lsvResult_MouseUp(int button);

}  // namespace tavix::mdlPubSelf
