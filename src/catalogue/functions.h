#pragma once

#include <span>

#include "text/text.h"

namespace tavix::mdlPubSelf {

// A function that the window offers. The two branches of the privacy tree stand among its functions with
// keys of their own and are none.
struct CleaningFunction {
  TextView Key;
  TextView Caption;
  TextView Description;
};

// The Privacy page in the order of its tree and of a scan: each branch before its functions.
extern const std::span<const CleaningFunction> kPrivacyFunctions;

}  // namespace tavix::mdlPubSelf
