#pragma once

#include "platform/windows/windows_api.h"
#include "text/text.h"

// What screen readers are told of a control beyond what the system sees in it. What is set is to be cleared
// while the window still exists. All do nothing where the system has no such service.
namespace tavix::win32 {

// The name of a control whose window text is its value.
void SetAccessibleName(HWND window, TextView name);
void ClearAccessibleName(HWND window);

// Says that a button is a link.
void SetLinkRole(HWND window);
void ClearLinkRole(HWND window);

// A label whose changes are said when the reader has nothing else to say. Each change to be said needs the
// event EVENT_OBJECT_LIVEREGIONCHANGED.
void SetLive(HWND window);
void ClearLive(HWND window);

}  // namespace tavix::win32
