#pragma once

namespace tavix::platform {

// The user's events. A program without a window has none waiting.
class EventQueue {
 public:
  virtual ~EventQueue() = default;
  // Handles what is waiting and returns; it does not wait for more.
  virtual void Yield() = 0;
};

inline EventQueue* eventQueue = nullptr;

// Yields where there is an event queue.
inline void Yield() {
  if (eventQueue != nullptr) eventQueue->Yield();
}

}  // namespace tavix::platform
