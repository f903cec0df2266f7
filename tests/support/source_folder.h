#pragma once

#include <string>

namespace tavix {

// The top folder of this project's sources, for tests that read its files: the one that TAVIX_SOURCES in the
// environment names, where a copy was made for them, and the one that was compiled otherwise.
std::string SourceFolder();

}  // namespace tavix
