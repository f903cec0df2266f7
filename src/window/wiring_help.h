#pragma once

namespace tavix {

// Ties the events of help, update check, about window and mails to their handlers. Part of WireMainForm.
void WireHelp();

}  // namespace tavix
