#pragma once

#include "text/text.h"

namespace tavix::platform {

// The folder of the program, with its catalogues and res\; a path of the machine, without a backslash at the
// end.
inline Text applicationFolder;

}  // namespace tavix::platform
