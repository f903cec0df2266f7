#pragma once

#include <span>

#include "scan/scan_function.h"

namespace tavix::mdlPubSelf {

// The privacy traces that stand in the current user's registry. A trace is a finding simply because it is
// there.
extern const std::span<const Scanner> kPrivacyRegistryScanners;

}  // namespace tavix::mdlPubSelf
