#pragma once

#include "text/text.h"

namespace tavix {

// The version of the product: three numbers with dots between them. Set by the build.
extern const TextView kProductVersion;

}  // namespace tavix
