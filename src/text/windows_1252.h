#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "text/text.h"

namespace tavix {

// Decodes the western code page 1252. Every byte is a character: the five that the code page leaves undefined
// are the control characters with the same number.
Text FromWindows1252(std::string_view bytes);

// Encodes a text. Nothing when a character isn't in the code page.
std::optional<std::string> ToWindows1252(TextView text);

}  // namespace tavix
