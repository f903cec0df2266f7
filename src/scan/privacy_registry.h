#pragma once

#include <span>

#include "scan/scan_function.h"

namespace tavix::mdlPubSelf {

// The scanners of the Privacy page for the current user's registry. Every trace that exists is a finding.
extern const std::span<const Scanner> kPrivacyRegistryScanners;

}  // namespace tavix::mdlPubSelf
