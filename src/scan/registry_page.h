#pragma once

#include <span>

#include "scan/scan_function.h"

namespace tavix::mdlPubSelf {

// The scanners of the Registry page.
extern const std::span<const Scanner> kRegistryScanners;

}  // namespace tavix::mdlPubSelf
