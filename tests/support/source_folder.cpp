#include "support/source_folder.h"

#include <cstdlib>

namespace tavix {

std::string SourceFolder() {
  const char* copy = std::getenv("TAVIX_SOURCES");
  return copy != nullptr ? copy : TAVIX_SOURCE_DIR;
}

}  // namespace tavix
