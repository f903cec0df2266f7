#pragma once

#include "text/text.h"

namespace tavix::mdlPubSelf {

// What the user can set. Values stay text until the place of use.

// The functions of a one-click run: their keys in scan order, with "|" before each and behind the last.
inline Text Functions;

}  // namespace tavix::mdlPubSelf
