#pragma once

namespace tavix {

// Sets `BigInterface` of the main window from the setting: "Auto" is big on a screen more than 1023 pixels
// wide, "Big" is big, any other text small. Once at start.
void ChooseInterfaceSize();

// Gives the main window and all its controls their places and sizes, in twips, for the big size where
// `BigInterface` is set and for the small one otherwise. The window stands in the middle of
// platform::screen. It is called once, since the size is fixed for the life of the process; visibility is
// left alone.
void LayOutMainForm();

}  // namespace tavix
