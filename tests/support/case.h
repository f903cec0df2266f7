#pragma once

#include <gtest/gtest.h>

#include <concepts>
#include <string>
#include <type_traits>

#include "text/utf8.h"

namespace tavix {

// Names the case of a loop or a table in the message of a failing check:
//   for (const TextView name : kNames) EXPECT_TRUE(IsFileName(name)) << Case(name);
// With several checks in the loop: SCOPED_TRACE(Case(name)).
template <class Value>
std::string Case(const Value& value) {
  if constexpr (std::convertible_to<Value, TextView>) {
    return '"' + ToUtf8(value) + '"';
  } else if constexpr (std::is_enum_v<Value>) {
    return std::to_string(static_cast<std::underlying_type_t<Value>>(value));
  } else {
    return testing::PrintToString(value);
  }
}

}  // namespace tavix
