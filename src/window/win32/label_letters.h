#pragma once

#include "platform/windows/windows_api.h"

namespace tavix::win32 {

// Whether a message is the letter of a label or of a group's title, pressed with Alt, or alone while the
// control in focus takes no letters. If so, the focus goes to the control that it names: the next one in tab
// order. The system does this for windows made from a dialog template only.
bool FollowLabelLetter(HWND window, const MSG& message);

}  // namespace tavix::win32
