#pragma once

namespace tavix::platform {

// Takes everything away from behind the platform interfaces that a host puts there.
void ClearPlatform();

}  // namespace tavix::platform
