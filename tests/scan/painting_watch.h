#pragma once

#include <vector>

#include "forms/main_form.h"
#include "platform/event_queue.h"

namespace tavix::mdlPubSelf {

// Records whether painting of the result list is suspended: at each change, and at each yield to the user
// interface.
struct PaintingWatch : ControlPeer, platform::EventQueue {
  PaintingWatch() {
    frmPubMain.lsvResult.peer = this;
    platform::eventQueue = this;
  }
  ~PaintingWatch() override {
    frmPubMain.lsvResult.peer = nullptr;
    platform::eventQueue = platform::noEventQueue;
  }
  void ModelChanged() override {
    const bool now = frmPubMain.lsvResult.PaintingSuspended;
    if (now != last) changes.push_back(now);
    last = now;
  }
  void Yield() override { atYields.push_back(frmPubMain.lsvResult.PaintingSuspended); }

  std::vector<bool> changes, atYields;
  bool last = false;
};

}  // namespace tavix::mdlPubSelf
