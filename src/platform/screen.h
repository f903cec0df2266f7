#pragma once

namespace tavix::platform {

// The screen that the main window opens on; pixels. The twips of a pixel are 15 at 96 DPI.
struct Screen {
  int Width = 1024;
  int Height = 768;
  int TwipsPerPixel = 15;
};

inline Screen screen;

}  // namespace tavix::platform
