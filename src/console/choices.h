#pragma once

#include <string>

#include "console/options.h"

namespace tavix::console {

// Opens the page that the options name and leaves ticked there what they ask for, all by the handlers of a
// user's clicks. False, with the reason in one line, when a function or a scope isn't there.
bool OpenAndTick(const Options& options, std::string& error);

}  // namespace tavix::console
