#pragma once

#include "platform/screen.h"
#include "platform/windows/windows_api.h"

// How large things are on a screen. Each monitor has a resolution of its own since Windows 10; older systems
// have one for all.
namespace tavix::windows {

// The dots per inch of the monitor that a window is on. For null, those of the primary monitor at sign-in.
int DpiOf(HWND window);
// The system's message font for a monitor of this resolution.
LOGFONTW MessageFont(int dpi);
// The pixels of an inch of our windows: as many as the monitor has, and more if the user has made the
// system's text larger. So a window grows as its texts do.
int LayoutDpi(int dpi);

// The window around a client area.
RECT WindowAround(RECT client, DWORD style, DWORD extendedStyle, int dpi);
// A length of the system (SM_...).
int SystemLength(int metric, int dpi);

// The monitor that a window is on, or the primary one for null.
MONITORINFO MonitorOf(HWND window);
// The corner nearest to `corner` at which a window of this size is inside an area. A larger one begins where
// the area does.
POINT Within(const RECT& area, POINT corner, SIZE size);
// The size of the monitor that a window is on, for the layout.
platform::Screen ScreenOf(HWND window);

}  // namespace tavix::windows
