#pragma once

#include <cstdlib>

// What a fuzz target asserts, in every build.
inline void Require(bool holds) {
  if (!holds) std::abort();
}
