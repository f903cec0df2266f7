#pragma once

#include "platform/windows/windows_api.h"
#include "text/text.h"

namespace tavix::windows {

// The system's message box, with the program's words on its buttons (platform::buttonWord). Returns its
// answer, or 0 if it could not be shown.
int ShowMessageBox(HWND owner, const Text& text, const Text& caption, UINT style);

}  // namespace tavix::windows
