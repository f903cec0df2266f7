#pragma once

#include "text/text.h"

namespace tavix {

// The version of the product, three numbers with dots between them. The build gives it.
extern const TextView kProductVersion;

}  // namespace tavix
