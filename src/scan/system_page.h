#pragma once

#include <span>

#include "scan/scan_function.h"

namespace tavix::mdlPubSelf {

// The scanners of the System page.
extern const std::span<const Scanner> kSystemScanners;

}  // namespace tavix::mdlPubSelf
