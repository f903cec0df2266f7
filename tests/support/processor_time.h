#pragma once

#include <chrono>

namespace tavix {

// The processor time that this process has used so far. Unlike the time of day it doesn't pass while other
// processes have the machine, so a test may hold it against a limit.
std::chrono::duration<double> ProcessorTime();

}  // namespace tavix
