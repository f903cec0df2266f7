#pragma once

#include <optional>
#include <utility>

namespace tavix {

// A statement that may be skipped: assigns when there is a value, and does nothing otherwise.
template <class Target, class Value>
void Set(Target& target, std::optional<Value> attempt) {
  if (attempt) target = std::move(*attempt);
}

}  // namespace tavix
