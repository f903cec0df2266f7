#pragma once

namespace tavix::platform {

// Tells copies of the program apart.
class Instance {
 public:
  virtual ~Instance() = default;
  // Whether another copy runs over the same system, be it in another session or another user's. One whose
  // mark may not be opened counts as running. Until this one ends, it counts as running itself.
  virtual bool PreviousRuns() = 0;
};

inline Instance* instance = nullptr;

}  // namespace tavix::platform
