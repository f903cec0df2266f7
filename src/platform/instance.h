#pragma once

namespace tavix::platform {

// Whether the program runs more than once.
class Instance {
 public:
  virtual ~Instance() = default;
  // Whether another copy runs on the same system, in any session of any user. True as well when the mark of
  // another copy exists and can't be opened. From this call until its end, this copy counts as running.
  virtual bool PreviousRuns() = 0;
};

// Never null. Without a host it is noInstance (platform/nothing.h).
extern Instance* instance;
extern Instance* const noInstance;

}  // namespace tavix::platform
