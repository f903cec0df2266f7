#pragma once

namespace tavix::platform {

// The screen that the main window opens on, in units of 1/96 inch: the pixels of a screen at 96 DPI, fewer
// than it has pixels where its dots are finer. So a unit is 15 twips on every screen, and what fits into it
// is told without asking how fine its dots are.
struct Screen {
  int Width = 1024;
  int Height = 768;
};

inline Screen screen;

}  // namespace tavix::platform
