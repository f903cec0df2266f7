#pragma once

#include <memory>

#include "platform/file_system.h"

namespace tavix::windows {

// As platform::FileSystem::OpenFound. `start` is a normal path (windows_path.h).
std::unique_ptr<platform::FoundFolder> OpenFoundFolder(TextView start, TextView below);

}  // namespace tavix::windows
