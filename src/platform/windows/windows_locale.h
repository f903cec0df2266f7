#pragma once

#include "text/number.h"

namespace tavix::windows {

// The user's separators, as the control panel has them; `.` and `,` for one that can't be had.
Locale ReadUserLocale();

}  // namespace tavix::windows
