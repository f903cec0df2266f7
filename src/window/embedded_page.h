#pragma once

// The small page that shows work in progress.
namespace tavix::mdlPubSelf {

// Sends webGIF to res\scan.htm under the application folder.
void SendEmbeddedPage();
// The page has been read: its document is known from now on, and shows no scroll bars.
void webGIF_DocumentComplete();
// The page has no menu.
void mhtm_oncontextmenu(bool& shown);

}  // namespace tavix::mdlPubSelf
