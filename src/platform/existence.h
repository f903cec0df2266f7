#pragma once

#include <optional>

namespace tavix::platform {

// The answer of an existence test: true for what is there, false for what is known to be missing, nothing
// where it can't be told. It is no condition by itself, since a known "missing" would count as true there:
// ask `== true` for what must be there, and `== false` for what must be missing.
class Existence : public std::optional<bool> {
 public:
  using std::optional<bool>::optional;
  Existence(const std::optional<bool>& known) : std::optional<bool>(known) {}
  explicit operator bool() const = delete;
};

}  // namespace tavix::platform
