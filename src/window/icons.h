#pragma once

#include "controls/control.h"

// Page icons and title buttons have a picture at rest and a lit one, which they show under the mouse.
namespace tavix::mdlPubSelf {

// Gives every icon its picture at rest and the title strip the picture of the window's size. At start.
void LoadIconPictures();
// The mouse moves over an icon: lights it, unless it is the page in use, whose picture stays.
void LightIcon(PictureBox& icon);
// Puts all icons to rest, the page in use too, if any may be lit.
void PutIconsToRest();

}  // namespace tavix::mdlPubSelf
