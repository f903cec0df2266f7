#pragma once

#include <optional>

namespace tavix::platform {

// The answer of an existence test: true when it exists, false when it is known to be missing, nothing when
// that can't be told. It doesn't convert to bool, because a known "missing" would then count as true. Write
// `== true` for what must exist and `== false` for what must be missing.
class Existence : public std::optional<bool> {
 public:
  using std::optional<bool>::optional;
  Existence(const std::optional<bool>& known) : std::optional<bool>(known) {}
  explicit operator bool() const = delete;
};

}  // namespace tavix::platform
