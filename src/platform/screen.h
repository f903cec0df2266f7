#pragma once

namespace tavix::platform {

// The screen that the main window opens on, in units of 1/96 inch. At 96 DPI with text of the usual size a
// unit is a pixel; at higher DPI or with larger text it is more than one. A unit is always 15 twips, so
// layout depends on neither.
struct Screen {
  int Width = 1024;
  int Height = 768;
  int WorkHeight = Height;  // without the task bar
};

inline Screen screen;

}  // namespace tavix::platform
