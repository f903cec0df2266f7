#pragma once

#include <span>

#include "scan/scan_function.h"

namespace tavix::mdlPubSelf {

// The scanners of the Privacy page for folders and files.
extern const std::span<const Scanner> kPrivacyFileScanners;

}  // namespace tavix::mdlPubSelf
