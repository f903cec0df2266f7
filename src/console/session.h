#pragma once

#include <string>

#include "console/options.h"

namespace tavix::console {

// Starts the program over the machine in force, sets the ticks that the options ask for, presses the
// buttons and prints, up to the closed window. The exit status: 0, or 2 with a reason in `error`.
int RunSession(const Options& options, std::string& error);

}  // namespace tavix::console
