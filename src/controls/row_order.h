#pragma once

#include <cstdint>
#include <functional>
#include <span>

#include "text/text.h"

namespace tavix {

// Sorts row numbers by the texts that `textOf` gives for them, letter case aside; equal texts keep their
// order, ascending and descending alike.
void SortRows(std::span<uint32_t> rows, bool descending, const std::function<TextView(uint32_t)>& textOf);

}  // namespace tavix
