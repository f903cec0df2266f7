#pragma once

#include <string>

#include "console/options.h"

namespace tavix::console {

// Starts the program over the current machine, ticks and presses what the options ask for, prints the results
// and closes the program. Returns the exit status: 0; 2 if the options don't fit the machine; 3 if the
// program doesn't start over it. `error` gives the reason in one line.
int RunSession(const Options& options, std::string& error);

}  // namespace tavix::console
