#pragma once

namespace tavix::machine {

// Takes everything away from behind the platform interfaces that a host puts there.
void ClearPlatform();

}  // namespace tavix::machine
