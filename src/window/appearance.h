#pragma once

#include "controls/control.h"

// What the main window looks like: its icons, its colours, and the page that shows work in progress.
namespace tavix::mdlPubSelf {

// The pictures of pages and title buttons are icons. An icon has two bitmaps: one at rest, one lit.

// Shows all icons at rest, and the title strip in the size of the window. At start.
void LoadIconPictures();
// The mouse moves over an icon: lights it. The current page's icon stays as it is.
void LightIcon(PictureBox& icon);
// Shows all icons at rest, if any may be lit.
void UnlightIcons();

// Gives the privacy tree, the scope tree and their nodes the colours of the result list. At start.
void ColorControls();

// Sends webGIF to res\scan.htm under the application folder.
void SendEmbeddedPage();
// The page has been read: it shows no scroll bars.
void webGIF_DocumentComplete();
// The page has no menu.
void mhtm_oncontextmenu(bool& shown);

}  // namespace tavix::mdlPubSelf
