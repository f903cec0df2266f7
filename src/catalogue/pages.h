#pragma once

namespace tavix::mdlPubSelf {

// A release of a mouse button on the picture of a page. The left one opens the page, unless it is the one in
// use: its controls are shown, and a page with a list is built anew with everything ticked, the Advanced
// page with its tree of drives. The results stay. It can happen in the midst of a scan.
void picPrivacy_MouseUp(int button);
void picSystem_MouseUp(int button);
void picRegistry_MouseUp(int button);
void picAdv_MouseUp(int button);

// Marks the picture of the page in use as the current one; its picture stays.
void MarkLastPage();

}  // namespace tavix::mdlPubSelf
