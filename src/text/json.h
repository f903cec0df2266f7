#pragma once

#include <string>

#include "text/text.h"

namespace tavix {

// Appends a text as a JSON string, quotes included, in UTF-8; half of a surrogate pair is escaped.
void AppendJson(std::string& out, TextView text);

}  // namespace tavix
