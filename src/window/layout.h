#pragma once

namespace tavix {

// Gives the main window and all its controls their places and sizes, in twips, for the big size where
// `BigInterface` is set and for the small one otherwise. The window stands in the middle of
// platform::screen. It is called once, since the size is fixed for the life of the process; visibility is
// left alone.
void LayOutMainForm();

}  // namespace tavix
