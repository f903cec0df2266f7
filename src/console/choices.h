#pragma once

#include <string>

#include "console/options.h"

namespace tavix::console {

// Opens the page of the options and ticks the functions and scopes of the options, by calling the handlers of
// the user's clicks. False if a function or scope doesn't exist; `error` then says which in one line.
bool OpenAndTick(const Options& options, std::string& error);

}  // namespace tavix::console
