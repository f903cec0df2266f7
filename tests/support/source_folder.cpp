#include "support/source_folder.h"

namespace tavix {

std::string SourceFolder() { return TAVIX_SOURCE_DIR; }

}  // namespace tavix
