#pragma once

#include <functional>
#include <string>

#include "console/options.h"

namespace tavix::console {

// Starts the program over the current machine, ticks and presses what the options ask for, prints the results
// and closes the program. Returns the exit status: 0; 2 if the options don't fit the machine; 3 if the
// program doesn't start over it. `error` gives the reason in one line.
int RunSession(const Options& options, std::string& error);

// Starts the program over the current machine, calls `run` and closes the program. Returns the exit status:
// 0; 2 if `run` says false; 3 if the program doesn't start. `error` gives the reason in one line.
int RunProgram(const std::function<bool(std::string& error)>& run, std::string& error);

}  // namespace tavix::console
