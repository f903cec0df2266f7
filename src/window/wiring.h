#pragma once

namespace tavix {

// Ties the events of the main window's controls to their handlers and puts the parts of the program that
// start-up runs into `frameSteps`. Called once, before Form_Load. `Refresh`, `Minimize` and `Unload` of
// the window are the real window's own.
void WireMainForm();

}  // namespace tavix
