#pragma once

namespace tavix::platform {

// The events of the user interface.
class EventQueue {
 public:
  virtual ~EventQueue() = default;
  // Handles the events that are waiting, then returns. Doesn't wait for more.
  virtual void Yield() = 0;
};

// Never null. Without a host it is noEventQueue (platform/nothing.h).
extern EventQueue* eventQueue;
extern EventQueue* const noEventQueue;

inline void Yield() { eventQueue->Yield(); }

}  // namespace tavix::platform
