#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "text/text.h"

namespace tavix::platform {

// Type numbers of registry values that have a meaning here; any other number may stand in a registry.
enum class DataType : uint32_t {
  None = 0,
  String = 1,
  ExpandString = 2,
  Binary = 3,
  Number32 = 4,
  MultiString = 7,
  Number64 = 11,
};

// The data of a registry value as text, `bytes` as the registry holds them (numbers and UTF-16 with the
// low byte first): strings without their trailing NULs and without an odd last byte, not expanded; several
// strings joined by a blank; numbers of 4 and 8 bytes in unsigned decimal digits; anything else, a number
// of another length among it, as upper-case pairs of hex digits joined by a blank.
Text RenderData(uint32_t type, std::string_view bytes);

// The bytes of a string as the registry holds it, one NUL at its end.
std::string StringData(TextView text);

}  // namespace tavix::platform
