#pragma once

#include <string>

namespace tavix {

// The top folder of this project's sources, for tests that read its files.
std::string SourceFolder();

}  // namespace tavix
