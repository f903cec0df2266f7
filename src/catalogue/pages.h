#pragma once

namespace tavix::mdlPubSelf {

// Handles the release of a mouse button on the picture of a page. The left button opens the page unless it is
// open already: its controls are shown, its list is filled again with everything ticked, and the Advanced
// page builds its tree of drives. The results stay. A page can be opened during a scan.
void picPrivacy_MouseUp(int button);
void picSystem_MouseUp(int button);
void picRegistry_MouseUp(int button);
void picAdv_MouseUp(int button);

// Marks the picture of the page LastPage as the current one, with its border. The picture itself stays.
void MarkLastPage();

}  // namespace tavix::mdlPubSelf
