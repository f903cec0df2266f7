#pragma once

#include <string>

namespace tavix {

// The top folder of this project's sources, for tests that read its files. TAVIX_SOURCES in the environment
// names it if there is a copy for the tests; otherwise it is the folder that was compiled.
std::string SourceFolder();

}  // namespace tavix
