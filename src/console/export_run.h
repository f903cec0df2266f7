#pragma once

#include <string>

#include "console/options.h"

namespace tavix::console {

// Scans all pages of the current machine with all functions, and writes what the scans read, with the files
// of the chosen drives and folders, to the new machine folder `options.exportFolder`. Removes nothing of the
// machine. Returns the exit status:
// - 0: the folder is complete. What it can't hold was left out, and standard error says so.
// - 1: it couldn't be written, or Ctrl+C stopped it. It is empty, or gone if it was made by this call.
// - 2: it isn't empty, or the options don't fit the machine.
// - 3: the program doesn't start over the machine.
// `error` gives the reason in one line.
int RunExport(const Options& options, std::string& error);

}  // namespace tavix::console
