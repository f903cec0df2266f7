#pragma once

#include "platform/windows/windows_api.h"
#include "text/text.h"

namespace tavix::win32 {

// Sets or clears the name that screen readers say for a control whose window text is its value. Clear it
// while the window still exists. Both do nothing where the system has no such service.
void SetAccessibleName(HWND window, TextView name);
void ClearAccessibleName(HWND window);

}  // namespace tavix::win32
