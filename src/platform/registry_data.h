#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "text/text.h"

namespace tavix::platform {

// The types of registry values that are treated specially. A registry may hold any other number.
enum class DataType : uint32_t {
  None = 0,
  String = 1,
  ExpandString = 2,
  Binary = 3,
  Number32 = 4,
  MultiString = 7,
  Number64 = 11,
};

// Converts a registry value to text, as platform/registry.h describes. `bytes` are the data as stored,
// numbers and UTF-16 little-endian. Trailing NULs and an odd last byte of a string are dropped.
Text RenderData(uint32_t type, std::string_view bytes);

// The stored bytes of a string, with one NUL at its end.
std::string StringData(TextView text);

}  // namespace tavix::platform
