#pragma once

#include <cstdio>
#include <string_view>

#include "text/text.h"

namespace tavix::console {

// Prints the rows of lsvResult and the labels of the job, one JSON object on each line. Each object names the
// stage ("scan" or "clean").
void PrintJson(std::FILE* out, std::string_view stage);
// Prints the same as a table for people.
void PrintTable(std::FILE* out);
// The first `length` code units of a text, one less if the cut would split a surrogate pair.
TextView BeginningOf(TextView text, size_t length);

}  // namespace tavix::console
