#pragma once

#include <string_view>

#include "text/text.h"

namespace tavix::machine {

// The path that the location block of a shortcut tells: on a volume of the machine if it has one there, else
// on a share of the network. Empty when it tells none.
Text ShortcutLocation(std::string_view block);

}  // namespace tavix::machine
