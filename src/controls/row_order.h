#pragma once

#include <cstdint>
#include <functional>
#include <span>

#include "text/text.h"

namespace tavix {

// Sorts row numbers by the texts that `textOf` gives, ignoring letter case. Stable, also when descending.
void SortRows(std::span<uint32_t> rows, bool descending, const std::function<TextView(uint32_t)>& textOf);

}  // namespace tavix
