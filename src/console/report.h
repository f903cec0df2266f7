#pragma once

#include <cstdio>
#include <string_view>

#include "text/text.h"

namespace tavix::console {

// Prints the rows of lsvResult and the labels of the job, as JSON objects that bear the stage's name.
void PrintJson(std::FILE* out, std::string_view stage);
// The same as a table for people.
void PrintTable(std::FILE* out);
// At most so many code units of a text, and no half of a character.
TextView BeginningOf(TextView text, size_t length);

}  // namespace tavix::console
