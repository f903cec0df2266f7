#pragma once

namespace tavix::platform {

// The size of the screen that the main window opens on, in units of 1/96 inch. At 96 DPI a unit is a pixel;
// at higher DPI it is more than one. A unit is always 15 twips, so layout doesn't depend on the DPI.
struct Screen {
  int Width = 1024;
  int Height = 768;
};

inline Screen screen;

}  // namespace tavix::platform
