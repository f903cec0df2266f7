#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/text.h"

namespace tavix {

// The text of bytes of the western code page 1252. Every byte is a character: the five that the code page
// leaves open stand for the control characters of the same number.
Text FromWindows1252(std::string_view bytes);

// The bytes of a text; nothing when a character isn't in the code page.
std::optional<std::string> ToWindows1252(TextView text);

}  // namespace tavix
