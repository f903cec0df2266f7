#pragma once

#include "text/text.h"

namespace tavix::platform {

// Types of drives.
constexpr int kUnknownDrive = 0;
constexpr int kRemovableDrive = 1;
constexpr int kFixedDrive = 2;
constexpr int kNetworkDrive = 3;
constexpr int kCdDrive = 4;
constexpr int kMemoryDrive = 5;

struct Drive {
  Text path;  // "C:"
  int type = kUnknownDrive;
  bool ready = false;
  Text volumeName;  // empty when the drive isn't ready
};

}  // namespace tavix::platform
