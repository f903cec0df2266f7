#pragma once

#include <chrono>

namespace tavix {

// The processor time that this process has used so far. It doesn't advance while other processes run, so a
// test may check it against a limit.
std::chrono::duration<double> ProcessorTime();

}  // namespace tavix
