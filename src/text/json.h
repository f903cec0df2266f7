#pragma once

#include <string>

#include "text/text.h"

namespace tavix {

// Appends a text as a quoted JSON string in UTF-8. An unpaired surrogate is escaped.
void AppendJson(std::string& out, TextView text);

}  // namespace tavix
