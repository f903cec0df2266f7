#pragma once

namespace tavix {

// Ties the events of the options window and of the window that asks for a junk type to their handlers, and
// puts their closing into `frameSteps`. Called once, before Form_Load. `ShowModal` and `Unload` of both are
// the real windows' own.
void WireOptionsForm();

}  // namespace tavix
