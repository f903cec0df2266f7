#pragma once

#include "platform/windows/windows_api.h"
#include "text/text.h"

namespace tavix::win32 {

// Gives a control whose text is its value a name for readers of the screen, or takes it away again, which has
// to be done while its window is there. Without such services in the system nothing happens.
void SetAccessibleName(HWND window, TextView name);
void ClearAccessibleName(HWND window);

}  // namespace tavix::win32
