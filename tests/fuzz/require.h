#pragma once

#include <cstdlib>

// An assertion of a fuzz target. It is checked in every build.
inline void Require(bool holds) {
  if (!holds) std::abort();
}
