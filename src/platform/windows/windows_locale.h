#pragma once

#include "text/number.h"

namespace tavix::windows {

// The user's decimal and grouping separators from the control panel. `.` and `,` when they can't be read.
Locale ReadUserLocale();

}  // namespace tavix::windows
