#pragma once

#include <optional>
#include <utility>

namespace tavix {

// Assigns the value if there is one; otherwise does nothing.
template <class Target, class Value>
void Set(Target& target, std::optional<Value> attempt) {
  if (attempt) target = std::move(*attempt);
}

}  // namespace tavix
