#pragma once

#include "platform/event_queue.h"
#include "window/win32/main_window.h"

namespace tavix::win32 {

// The messages of the main window. It is platform::eventQueue for as long as it lives.
class EventQueueWin32 : public platform::EventQueue {
 public:
  explicit EventQueueWin32(MainWindow& window) : window_(window) { platform::eventQueue = this; }
  EventQueueWin32(const EventQueueWin32&) = delete;
  ~EventQueueWin32() override { platform::eventQueue = platform::noEventQueue; }
  void Yield() override { window_.HandleWaiting(); }

 private:
  MainWindow& window_;
};

}  // namespace tavix::win32
